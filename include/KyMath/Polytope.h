// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_POLYTOPE_H
#define KYMATH_POLYTOPE_H

#include <KyMath/Forward.h>
#include <KyMath/Plane.h>

#include <vector>

namespace KyMath {

/// Convex region: the common positive side of a list of planes, made for culling a hierarchy of
/// nested boxes.
///
/// Bit i of a mask stands for plane i, and is set while that plane still has to be tested. Only the
/// first 32 planes are ever tested. contains() starts from the mask on top of a stack and leaves in
/// the current mask the planes that the box straddles; a box inside that box needs no others:
///
///     void cull(Polytope& view, const Node& node) {
///         if (!view.contains(node.box)) return;          // wholly outside
///         draw(node);
///         view.pushCurrentMask();                        // children: straddled planes only
///         for (const Node& child : node.children) cull(view, child);
///         view.popCurrentMask();
///     }
///
/// Batch::cullTree() does so in one call, for boxes in an array.
///
/// The stack is never empty after construction. Every function that changes the list of planes,
/// except assignment, ends with setupMask(), which pushes. To rebuild a polytope again and again,
/// call popCurrentMask() before each change, not after it, which would bring back the mask of the
/// old planes. If allocation fails (std::bad_alloc), a polytope does not change.
class KY_API Polytope {
public:
    /// @name Construction and assignment
    /// @{
    KY_CONTAINERS Polytope();  ///< No planes: contains every box.
    KY_CONTAINERS Polytope(const std::vector<PlaneT<double>>& planes);
    KY_CONTAINERS Polytope(const Polytope& p);  ///< Copies the planes with fresh corner indices.
    ~Polytope();
    Polytope& operator=(const Polytope& p);  ///< Copies the planes as they are.
    /// @}

    /// @name Planes
    /// @{
    /// Copies with fresh corner indices.
    KY_CONTAINERS void set(const std::vector<PlaneT<double>>& planes);
    void add(const PlaneT<double>& plane);  ///< Appends a copy with fresh corner indices.
    void clear();                           ///< Removes all planes.
    /// The six faces of the box, with their positive sides inwards: x > min.x, x < max.x, then y
    /// and z. The validity of the box is not checked.
    void setToBoundingBox(const BoundingBoxT<double>& box);
    KY_CONTAINERS const std::vector<PlaneT<double>>& getPlanes() const;
    /// @}

    /// @name Masks
    /// @{
    void setupMask();        ///< Sets the current mask to all planes and pushes it.
    void pushCurrentMask();  ///< Once the stack has grown, pushing allocates nothing.
    void popCurrentMask();   ///< The stack must not be empty, nor be left empty before contains().
    unsigned int getCurrentMask() const;
    /// The last element is the top.
    KY_CONTAINERS const std::vector<unsigned int>& getMaskStack() const;
    /// @}

    /// False if the box is wholly outside one of the planes in the mask on top of the stack. True
    /// for a box inside, for one that straddles, and for some outside the region near its edges and
    /// corners, where no single plane separates them.
    ///
    /// A top of 0 gives true at once and leaves the current mask alone, which is also 0 wherever
    /// the protocol above is followed. Otherwise the current mask becomes the top, and the planes
    /// are tested in order: one that has the box strictly on its positive side loses its bit, one
    /// that has it strictly on its negative side ends the test with false. After true, the current
    /// mask holds exactly the planes that the box straddles or touches. Allocates nothing.
    ///
    /// An empty box, or one with a NaN, is not rejected: test valid() first. This writes the
    /// current mask, so each thread needs its own copy of a polytope; Batch::cull() does not write
    /// it.
    bool contains(const BoundingBoxT<double>& box);

    /// @name Transformation
    /// The masks stay.
    /// @{

    /// PlaneT::transformProvidingInverse(m) for every plane: multiplies the coefficients by m and
    /// makes the normals of unit length.
    void transformProvidingInverse(const Matrix44T<double>& m);
    /// transformProvidingInverse(m.inverse_orthogonal()). This does not move the region by m: for
    /// that, call transformProvidingInverse() with the transposed inverse of m.
    void transform(const Matrix44T<double>& m);
    /// @}

private:
    std::vector<unsigned int> maskStack_;
    unsigned int currentMask_;
    std::vector<PlaneT<double>> planes_;
};

}  // namespace KyMath

#ifdef KYMATH_INLINE
#include <KyMath/inline/Polytope.h>
#endif

#endif
