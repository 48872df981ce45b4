// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Tables.h"

namespace KyMath::python {

/// What decomposeT() gives and composeT() takes, as a tuple with names.
template <class T>
struct Decomposition {
    std::tuple<Vector3T<T>, Vector3T<T>, Vector3T<T>, T> parts;
    static std::string annotation() {
        return std::string("Decomposition[") + kName<Vector3T<T>> + "]";
    }
};
static PyTypeObject* decompositionType = nullptr;

template <class T>
PyObject* toPython(const Decomposition<T>& decomposition) {
    Ref tuple(PyStructSequence_New(decompositionType));
    Py_ssize_t i = 0;
    const auto add = [&](const auto& part) {
        PyStructSequence_SetItem(tuple.get(), i++, Ref(toPython(part)).release());
    };
    std::apply([&](const auto&... part) { (add(part), ...); }, decomposition.parts);
    return tuple.release();
}

namespace {

template <Scalar T>
void addMatrix(PyObject* module) {
    using M = Matrix44T<T>;
    using V = Vector4T<T>;
    const auto refuseNumbers = [](T, T, T, T, T, T, T, T, T, T, T, T, T, T, T, T) -> Refusal {
        return {"sixteen numbers by rows or by columns? Give four rows, or call fromColumns()"};
    };
    const auto refuseVectors = [](const V&, const V&, const V&, const V&) -> Refusal {
        return {"four rows or four columns? Call fromColumns()"};
    };
    const auto refuseProduct = [](const M&, const M&) -> Refusal {
        return {"a * b could be two products: a @ b is that of matrices"};
    };
    const auto refusePoint = [](const M&, const Vector3T<T>&) -> Refusal {
        return {"a point or a direction? Call transformPositionT() or transformDirectionT()"};
    };
    Type<M> type;
    init<make<M>, read<M>, refuseVectors, refuseNumbers>(type, "|rows|r0 r1 r2 r3|");
    constant<M::kZero>(type, "kZero");
    constant<M::kIdentity>(type, "kIdentity");
    defStatic<make<M, const V&, const V&, const V&, const V&>>(type, "fromColumns", "c0 c1 c2 c3");
    def<[](const M& m, Index<4> r) { return m.row(r); }>(type, "row", "r");
    def<[](const M& m, Index<4> c) { return m.column(c); }>(type, "column", "c");
    def<&M::isEqual>(type, "isEqual", "m tol");
    defStatic<&M::areEqualTol>(type, "areEqualTol", "a b tol");
    def<&M::isFinite>(type, "isFinite");
    defStatic<static_cast<M (*)(const M&, const M&)>(&M::multiply),
              static_cast<M (*)(const M&, T)>(&M::multiply)>(type, "multiply", "a b|m s");
    defStatic<&M::divide>(type, "divide", "m s");
    defStatic<&M::multiplyWithVector>(type, "multiplyWithVector", "m v");
    op<Py_nb_matrix_multiply, static_cast<M (*)(const M&, const M&)>(&M::multiply),
       &M::multiplyWithVector, refusePoint>(type);
    op<Py_nb_multiply, static_cast<M (*)(const M&, T)>(&M::multiply),
       [](T s, const M& m) { return M::multiply(m, s); }, refuseProduct>(type);
    op<Py_nb_true_divide, &M::divide>(type);
    opInPlace < Py_nb_inplace_multiply, &M::operator*=>(type);
    opInPlace < Py_nb_inplace_true_divide, &M::operator/=>(type);
    def<&M::transpose>(type, "transpose");
    def<[](const M& m, Index<4> r0, Index<4> r1, Index<4> r2, Index<4> c0, Index<4> c1,
           Index<4> c2) { return m.determinant3x3(r0, r1, r2, c0, c1, c2); }>(
        type, "determinant3x3", "r0 r1 r2 c0 c1 c2");
    def<&M::determinant>(type, "determinant");
    def<&M::inverse>(type, "inverse");
    def<&M::invert>(type, "invert");
    def<&M::inverse_orthogonal>(type, "inverse_orthogonal");
    def<&M::invert_orthogonal>(type, "invert_orthogonal");
    def<&M::inverse_affine>(type, "inverse_affine");
    def<&M::invert_affine>(type, "invert_affine");
    type.addTo(module);
}

template <Scalar T>
using V = Vector3T<T>;
template <Scalar T>
using M = Matrix44T<T>;
template <Scalar T>
using Q = QuaternionT<T>;

/// For one scalar type, or for both: numbers alone then make the first.
template <Scalar First, Scalar... Other>
Namespace addTransformation(const char* name) {
    using namespace Transformation;
    using N = First;
    Namespace space{name};
    const auto define = [&space]<Scalar... T>(std::tuple<T...>) {
        def<static_cast<M<N> (*)(N, N, N)>(&createScaleT<N>),
            static_cast<M<T> (*)(const V<T>&)>(&createScaleT<T>)...>(space, "createScaleT",
                                                                     "x y z|s");
        def<static_cast<M<N> (*)(N, N, N)>(&createTranslationT<N>),
            static_cast<M<T> (*)(const V<T>&)>(&createTranslationT<T>)...>(
            space, "createTranslationT", "x y z|v");
        def<static_cast<M<N> (*)(N, N, N)>(&createRotationT<N>),
            static_cast<M<T> (*)(const Q<T>&)>(&createRotationT<T>)...,
            static_cast<M<T> (*)(const V<T>&, T)>(&createRotationT<T>)...>(
            space, "createRotationT",
            sizeof...(T) == 1 ? "x y z|q|axis angle" : "x y z|q|q|axis angle");
        def<&createRotationFromAxesT<T>...>(space, "createRotationFromAxesT", "a b c");
        def<&createRotationFromOuterProductT<T>...>(space, "createRotationFromOuterProductT",
                                                    "a b");
        def<&createObjectLookAtT<T>...>(space, "createObjectLookAtT", "position target up");
        def<&createCameraLookAtT<T>...>(space, "createCameraLookAtT", "position target up");
        def<&createOrthographicT<N>>(space, "createOrthographicT",
                                     "left right bottom top zNear zFar");
        def<readBounds<getOrthographicT<T>, T>...>(space, "getOrthographicT", "m");
        def<&createFrustumT<N>>(space, "createFrustumT", "left right bottom top zNear zFar");
        def<readBounds<getFrustumT<T>, T>...>(space, "getFrustumT", "m");
        def<&createPerspectiveT<N>>(space, "createPerspectiveT", "fovY aspect zNear zFar");
        def<&isPerspectiveProjectionT<T>...>(space, "isPerspectiveProjectionT", "m");
        def<&getTranslationT<T>...>(space, "getTranslationT", "m");
        def<&getScaleT<T>...>(space, "getScaleT", "m");
        def<&getRotationT<T>...>(space, "getRotationT", "m normalize");
        def<&getRotationAsQuaternionT<T>...>(space, "getRotationAsQuaternionT", "m removeScale");
        def<[](const M<T>& m) { return Decomposition<T>{decompose(m)}; }...>(space, "decomposeT",
                                                                             "m");
        def<&composeT<T>...>(space, "composeT", "scale rotation translation sign");
        def<&setTranslationT<T>...>(space, "setTranslationT", "m t");
        def<&translateToT<T>...>(space, "translateToT", "m t");
        def<&setRotationT<T>...>(space, "setRotationT", "m rotation");
        def<&rotateToT<T>...>(space, "rotateToT", "m rotation");
        def<&setScaleT<T>...>(space, "setScaleT", "m scale");
        def<&scaleToT<T>...>(space, "scaleToT", "m scale");
        def<&transformPositionT<T>...>(space, "transformPositionT", "m p");
        def<&transformDirectionT<T>...>(space, "transformDirectionT", "m d");
        def<&linearVelocityT<T>...>(space, "linearVelocityT", "m0 m1 dt");
        def<&angularVelocityT<T>...>(space, "angularVelocityT", "m0 m1 dt");
        def<&isRotation<T>...>(space, "isRotation", "m tol");
    };
    define(std::tuple<First, Other...>());
    return space;
}

}  // namespace

void addMatrices(PyObject* module) {
    static PyStructSequence_Field names[] = {{"scale", "The lengths of the columns."},
                                             {"rotation", "The angles of createRotationT()."},
                                             {"translation", "Column 3."},
                                             {"sign", "1, or -1 for a mirrored matrix."},
                                             {}};
    PyStructSequence_Desc description = {"kymath.Decomposition",
                                         "What decomposeT() gives and composeT() takes.", names, 4};
    decompositionType = PyStructSequence_NewType(&description);
    auto* const decomposition = reinterpret_cast<PyObject*>(decompositionType);
    check(PyModule_AddObjectRef(module, "Decomposition", Ref(decomposition).release()));
    addMatrix<float>(module);
    addMatrix<double>(module);
    addTransformation<double, float>("Transformation").addAsMember(module);
    addTransformation<float>("Transformationf").addAsMember(module);
}

}  // namespace KyMath::python
