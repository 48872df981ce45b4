// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KY_KYREAL_H
#define KY_KYREAL_H

namespace Ky {

/// One column of a 4x4 matrix of doubles. `KyReal4*` is the two-dimensional view of such a matrix:
/// view[c][r] is the element in row r of column c.
typedef double KyReal4[4];

}  // namespace Ky

#endif
