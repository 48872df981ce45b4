// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Tables.h"

PyMODINIT_FUNC PyInit__core() {
    using namespace KyMath::python;
    static PyModuleDef definition = {PyModuleDef_HEAD_INIT,
                                     "kymath._core",
                                     nullptr,
                                     -1,
                                     nullptr,
                                     nullptr,
                                     nullptr,
                                     nullptr,
                                     nullptr};
    return guarded([] {
        Ref module(PyModule_Create(&definition));
        addVectors(module.get());
        addMatrices(module.get());
        addRotations(module.get());
        addBounds(module.get());
        addLines(module.get());
        check(PyModule_AddStringConstant(module.get(), "__libm__", KYMATH_LIBM));
        return module.release();
    });
}
