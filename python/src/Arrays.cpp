// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// The tables of kymath.arrays: every function whose result has a fixed shape.
#include "Kernels.h"

namespace KyMath::python {

// ---- The tables

namespace {

template <class T>
using V2 = Vector2T<T>;
template <class T>
using V3 = Vector3T<T>;
template <class T>
using V4 = Vector4T<T>;
template <class T>
using M = Matrix44T<T>;
template <class T>
using Q = QuaternionT<T>;
template <class T>
using B = BoundingBoxT<T>;
template <class T>
using P = PlaneT<T>;

/// What the vectors of two, three and four share.
template <class... V>
void addVector(Space& s) {
    add<&V::areEqualTol...>(s, "areEqualTol");
    add<static_cast<typename Layout<V>::Scalar (V::*)() const>(&V::normSquare)...>(s, "normSquare");
    add<&V::lengthSqr...>(s, "lengthSqr");
    add<[](const V& v, typename Layout<V>::Scalar divisor) { return v / divisor; }...>(s, "divide");
}
/// Those of two and of four, which have no array calls.
template <class... V>
void addNorms(Space& s) {
    add<&V::norm...>(s, "norm");
    add<&V::length...>(s, "length");
    add<static_cast<void (V::*)()>(&V::normalize)...>(s, "normalize");
}

template <Scalar... T>
void addVectors(Space& two, Space& three, Space& four) {
    addVector<V2<T>...>(two);
    addNorms<V2<T>...>(two);
    add<&V2<T>::dot...>(two, "dot");
    add<&V2<T>::cross...>(two, "cross");
    add<&V2<T>::rotate...>(two, "rotate");

    addVector<V3<T>...>(three);
    add<batched<&V3<T>::norm, KY_CALL(Batch::norm)>()...>(three, "norm");
    add<batched<&V3<T>::length, KY_CALL(Batch::norm)>()...>(three, "length");
    add<batched<static_cast<void (V3<T>::*)()>(&V3<T>::normalize), KY_CALL(Batch::normalize)>()...>(
        three, "normalize");
    add<&V3<T>::isZero...>(three, "isZero");
    add<&V3<T>::isFinite...>(three, "isFinite");
    add<batched<dot<T>, KY_CALL(Batch::dot)>()...>(three, "dot");
    add<static_cast<V3<T> (*)(const V3<T>&, const V3<T>&)>(&V3<T>::multComp)...>(three, "multComp");
    add<&V3<T>::addMultiple...>(three, "addMultiple");
    add<batched<&V3<T>::cross, KY_CALL(Batch::cross)>()...>(three, "cross");
    add<&V3<T>::distanceSqr...>(three, "distanceSqr");
    add<&V3<T>::distance...>(three, "distance");
    add<&V3<T>::maxComponentIndex...>(three, "maxComponentIndex");
    add<&V3<T>::makeCleanBase...>(three, "makeCleanBase");
    add<&V3<T>::getOrthogonal...>(three, "getOrthogonal");
    add<&V3<T>::orthogonalize...>(three, "orthogonalize");
    add<project<T>...>(three, "project");
    add<planeSpace<T>...>(three, "planeSpace");
    add<planeNormal<T>...>(three, "planeNormal");

    addVector<V4<T>...>(four);
    addNorms<V4<T>...>(four);
    add<&V4<T>::isZero...>(four, "isZero");
    add<&V4<T>::isFinite...>(four, "isFinite");
    add<&V4<T>::xyz...>(four, "xyz");
    add<&V4<T>::dot...>(four, "dot");
}

template <Scalar... T>
void addMatrix(Space& s) {
    add<&M<T>::isEqual...>(s, "isEqual");
    add<&M<T>::areEqualTol...>(s, "areEqualTol");
    add<&M<T>::isFinite...>(s, "isFinite");
    add<batchedByAnyOf<kProduct<T>, productsInCOrder<T>>()...>(s, "multiply");
    add<&M<T>::divide...>(s, "divide");
    add<&M<T>::multiplyWithVector...>(s, "multiplyWithVector");
    add<&M<T>::determinant...>(s, "determinant");
    add<batched<&M<T>::inverse, KY_CALL(Batch::inverse)>()...>(s, "inverse");
    add<&M<T>::inverse_orthogonal...>(s, "inverse_orthogonal");
    add<&M<T>::inverse_affine...>(s, "inverse_affine");
}

template <Scalar... T>
void addTransformation(Space& s) {
    using namespace Transformation;
    add<static_cast<M<T> (*)(const V3<T>&)>(&createScaleT<T>)...>(s, "createScaleT");
    add<static_cast<M<T> (*)(const V3<T>&)>(&createTranslationT<T>)...>(s, "createTranslationT");
    add<static_cast<M<T> (*)(T, T, T)>(&createRotationT<T>)...>(s, "createRotationT");
    add<batched<static_cast<M<T> (*)(const Q<T>&)>(&createRotationT<T>),
                KY_CALL(Batch::createRotations)>()...>(s, "createRotationT_q");
    add<static_cast<M<T> (*)(const V3<T>&, T)>(&createRotationT<T>)...>(s, "createRotationT_axis");
    add<&createRotationFromAxesT<T>...>(s, "createRotationFromAxesT");
    add<&createRotationFromOuterProductT<T>...>(s, "createRotationFromOuterProductT");
    add<&createObjectLookAtT<T>...>(s, "createObjectLookAtT");
    add<&createCameraLookAtT<T>...>(s, "createCameraLookAtT");
    add<&createOrthographicT<T>...>(s, "createOrthographicT");
    add<readBounds<getOrthographicT<T>, T>...>(s, "getOrthographicT");
    add<&createFrustumT<T>...>(s, "createFrustumT");
    add<readBounds<getFrustumT<T>, T>...>(s, "getFrustumT");
    add<&createPerspectiveT<T>...>(s, "createPerspectiveT");
    add<&isPerspectiveProjectionT<T>...>(s, "isPerspectiveProjectionT");
    add<&getTranslationT<T>...>(s, "getTranslationT");
    add<&getScaleT<T>...>(s, "getScaleT");
    add<batched<&getRotationT<T>, KY_CALL(Batch::getRotations), In<M<T>>, One<bool>,
                Out<V3<T>>>()...>(s, "getRotationT");
    add<batched<&getRotationAsQuaternionT<T>, KY_CALL(Batch::getRotationsAsQuaternions), In<M<T>>,
                One<bool>, Out<Q<T>>>()...>(s, "getRotationAsQuaternionT");
    add<decompose<T>...>(s, "decomposeT");
    add<&composeT<T>...>(s, "composeT");
    add<&translateToT<T>...>(s, "translateToT");
    add<&rotateToT<T>...>(s, "rotateToT");
    add<&scaleToT<T>...>(s, "scaleToT");
    add<batched<&transformPositionT<T>, KY_CALL(Batch::transformPositions), One<M<T>>, In<V3<T>>,
                Out<V3<T>>>()...>(s, "transformPositionT");
    add<batched<&transformDirectionT<T>, KY_CALL(Batch::transformDirections), One<M<T>>, In<V3<T>>,
                Out<V3<T>>>()...>(s, "transformDirectionT");
    add<&linearVelocityT<T>...>(s, "linearVelocityT");
    add<&angularVelocityT<T>...>(s, "angularVelocityT");
    add<&isRotation<T>...>(s, "isRotation");
}

template <Scalar... T>
void addQuaternion(Space& s) {
    add<&Q<T>::areEqualTol...>(s, "areEqualTol");
    add<batched<static_cast<Q<T> (Q<T>::*)(const Q<T>&) const>(&Q<T>::operator*),
                KY_CALL(Batch::multiply)>()...>(s, "multiply");
    add<&Q<T>::dot...>(s, "dot");
    add<&Q<T>::norm...>(s, "norm");
    add<&Q<T>::getInverse...>(s, "getInverse");
    add<batched<&Q<T>::rotate, KY_CALL(Batch::rotate)>()...>(s, "rotate");
    add<batched<&Q<T>::normalize, KY_CALL(Batch::normalize)>()...>(s, "normalize");
    add<fromAxisAngle<T>...>(s, "fromAxisAngle");
    add<toAxisAngle<T>...>(s, "toAxisAngle");
    add<fromEulerXYZ<T>...>(s, "fromEulerXYZ");
    add<toEulerXYZ<T>...>(s, "toEulerXYZ");
    add<&Q<T>::finiteRotation...>(s, "finiteRotation");
    add<batched<&Q<T>::slerp, KY_CALL(Batch::slerp)>()...>(s, "slerp");
    add<fromRotation<T>...>(s, "fromRotation");
}

template <Scalar... T>
void addBounds(Space& boxes, Space& planes) {
    add<&B<T>::valid...>(boxes, "valid");
    add<&B<T>::corner...>(boxes, "corner");
    add<&B<T>::center...>(boxes, "center");
    add<&B<T>::getBBSize...>(boxes, "getBBSize");
    add<&B<T>::radius...>(boxes, "radius");
    add<&B<T>::radius2...>(boxes, "radius2");
    add<static_cast<void (B<T>::*)(T, T, T)>(&B<T>::expandBy)...>(boxes, "expandBy");
    add<static_cast<void (B<T>::*)(const V3<T>&)>(&B<T>::expandBy)...>(boxes, "expandBy_p");
    add<static_cast<void (B<T>::*)(const BoundingSphere&)>(&B<T>::expandBy)...>(boxes,
                                                                                "expandBy_s");
    add<[](const B<T>& a, const B<T>& b) { return a + b; }...>(boxes, "add");
    add<&B<T>::isBetween...>(boxes, "isBetween");
    add<&B<T>::contains...>(boxes, "contains");
    add<&B<T>::intersects...>(boxes, "intersects");
    add<static_cast<B<T> (B<T>::*)(const B<T>&) const>(&B<T>::intersect)...>(boxes, "intersect");
    add<static_cast<bool (B<T>::*)(const V3<T>&, const V3<T>&) const>(&B<T>::intersect)...>(
        boxes, "intersect_line");
    add<batched<&B<T>::transform,
                [](const auto& in, const auto& m, const auto&... a) {
                    Batch::transformBoxes(m, in, a...);
                },
                In<B<T>>, One<M<T>>, Out<B<T>>>()...>(boxes, "transform");
    add<&B<T>::inverseTransform...>(boxes, "inverseTransform");

    add<&P<T>::getNormal...>(planes, "getNormal");
    add<&P<T>::distance...>(planes, "distance");
    add<batched<&P<T>::intersect, KY_CALL(Batch::classify), One<P<T>>, In<B<T>>,
                OutRow<signed char>>()...>(planes, "intersect");
    add<batched<&P<T>::intersectBoundingSphere, KY_CALL(Batch::classify), One<P<T>>, In<V3<T>>,
                In<T>, OutRow<signed char>>()...>(planes, "intersectBoundingSphere");
    add<&P<T>::makeUnitLength...>(planes, "makeUnitLength");
    add<&P<T>::transform...>(planes, "transform");
}

void addTransform(Space& s) {
    using T = KyTransform;
    using V = Vector3d;
    add<&T::isIdentity>(s, "isIdentity");
    add<&T::isValid>(s, "isValid");
    add<static_cast<T& (T::*)(const Quaterniond&)>(&T::setRotation)>(s, "setRotation");
    add<static_cast<bool (T::*)(V, double)>(&T::setRotation)>(s, "setRotation_dir");
    add<&T::makeRotationFromQuaternion>(s, "makeRotationFromQuaternion");
    add<[](T& t, int axis) { t.makeOrthonormal((axis % 3 + 3) % 3); }>(s, "makeOrthonormal");
    add<&T::rotateSelf>(s, "rotateSelf");
    add<static_cast<T& (T::*)(const Quaterniond&)>(&T::makeRotation)>(s, "makeRotation");
    add<static_cast<bool (T::*)(V, double)>(&T::makeRotation)>(s, "makeRotation_dir");
    add<&T::makeFromRotatedVector>(s, "makeFromRotatedVector");
    add<&T::outerProduct3x3>(s, "outerProduct3x3");
    add<toQuaternion>(s, "toQuaternion");
    add<batched<&T::transformPoint, KY_CALL(Batch::transformPoints), One<T>, In<V>, Out<V>>()>(
        s, "transformPoint");
    add<batched<&T::transformDirection, KY_CALL(Batch::transformDirections), One<T>, In<V>,
                Out<V>>()>(s, "transformDirection");
    add<batched<compound<&T::compound>,
                [](const T* a, const T* b, T* out, std::size_t count) {
                    for (std::size_t i = 0; i < 4 * count; ++i) out[i / 4](3, i % 4) = i % 4 == 3;
                    Batch::compound(a, b, out, count);
                },
                InRow<T>, InRow<T>, OutRow<T>>()>(s, "compound");
    add<compound<&T::compoundFirstThenInverseSecond>>(s, "compoundFirstThenInverseSecond");
    add<compound<&T::compoundInverseFirstThenSecond>>(s, "compoundInverseFirstThenSecond");
    add<&T::postCompound>(s, "postCompound");
    add<&T::postCompoundWithInverse>(s, "postCompoundWithInverse");
    add<&T::preCompound>(s, "preCompound");
    add<&T::preCompoundWithInverse>(s, "preCompoundWithInverse");
    add<interpolate<&T::interpolateRotation>>(s, "interpolateRotation");
    add<interpolate<&T::interpolate>>(s, "interpolate");
    add<&T::getTranslation>(s, "getTranslation");
    add<static_cast<void (T::*)(const V&)>(&T::setTranslation)>(s, "setTranslation");
}

void addEulerAngles(Space& s) {
    using Order = KyEulerAngles::eEulerOrder;
    add<[](const Vector3d& angles, Order order) {
        return toMatrix44(KyEulerAngles(angles, order));
    }>(s, "toMatrix44");
    add<[](const Matrix44d& m, Order order) { return anglesOf(m, order).angles(); }>(
        s, "fromMatrix44");
    add<&KyEulerAngles::getEulerAngles>(s, "getEulerAngles");
    add<[](const Vector3d& a, Order orderOfA, const Vector3d& b, Order orderOfB, double tol) {
        return KyEulerAngles::areEqualTol(KyEulerAngles(a, orderOfA), KyEulerAngles(b, orderOfB),
                                          tol);
    }>(s, "areEqualTol");
}

void addVector6(Space& s) {
    using V = Vector6;
    add<&V::add>(s, "add");
    add<&V::sub>(s, "sub");
    add<&V::scale>(s, "scale");
    add<&V::dot>(s, "dot");
    add<&V::norm>(s, "norm");
}

void addBoundingSphere(Space& s) {
    using S = BoundingSphere;
    add<&S::valid>(s, "valid");
    add<static_cast<void (S::*)(const Vector3d&)>(&S::expandBy)>(s, "expandBy");
    add<static_cast<void (S::*)(const S&)>(&S::expandBy)>(s, "expandBy_s");
    add<static_cast<void (S::*)(const BoundingBoxd&)>(&S::expandBy)>(s, "expandBy_b");
    add<static_cast<void (S::*)(const Vector3d&)>(&S::expandRadiusBy)>(s, "expandRadiusBy");
    add<static_cast<void (S::*)(const S&)>(&S::expandRadiusBy)>(s, "expandRadiusBy_s");
    add<static_cast<void (S::*)(const BoundingBoxd&)>(&S::expandRadiusBy)>(s, "expandRadiusBy_b");
}

template <Scalar... T>
void addRays(Space& s) {
    add<kMeetBox<T>...>(s, "intersect");
    add<meet<double, 2, BoundingSphere>>(s, "intersect_sphere");
    add<kMeetPlane<T>...>(s, "intersect_plane");
    add<kMeetTriangle<T>...>(s, "intersect_triangle");
    add<batchedByAnyOf<intersectBoxes<T>,
                       byArrayCall<KY_CALL(Rays::intersectBoxes), One<V3<T>>, One<V3<T>>, In<B<T>>,
                                   OutRow<T>, OutRow<T>>,
                       byArrayCall<KY_CALL(Rays::intersectBox), InRow<V3<T>>, InRow<V3<T>>,
                                   One<B<T>>, OutRow<T>, OutRow<T>>>()...>(s, "intersectBoxes");
    constexpr auto withOneLine = [](const auto& origin, const auto& direction,
                                    const auto* triangles, const auto&... a) {
        Rays::intersectTriangles(origin, direction, &triangles->a, a...);
    };
    constexpr auto withOneTriangle = [](const auto& origins, const auto& directions, const auto& t,
                                        const auto&... a) {
        Rays::intersectTriangle(origins, directions, t.a, t.b, t.c, a...);
    };
    add<batchedByAnyOf<
        intersectTriangles<T>,
        byArrayCall<withOneLine, One<V3<T>>, One<V3<T>>, InRow<Triangle<T>>, OutRow<T>>,
        byArrayCall<withOneTriangle, InRow<V3<T>>, InRow<V3<T>>, One<Triangle<T>>,
                    OutRow<T>>>()...>(s, "intersectTriangles");
}

template <class L>
void addLine(Space& s) {
    using V = Vector3d;
    add<static_cast<double (L::*)(const V&) const>(&L::closestPointFactor)>(s,
                                                                            "closestPointFactor");
    add<static_cast<double (L::*)(const L&) const>(&L::closestPointFactor)>(
        s, "closestPointFactor_line");
    add<static_cast<V (L::*)(const V&) const>(&L::closestPointTo)>(s, "closestPointTo");
    add<static_cast<V (L::*)(const L&) const>(&L::closestPointTo)>(s, "closestPointTo_line");
    add<distanceTo<L, V>>(s, "distanceTo");
    add<distanceTo<L, L>>(s, "distanceTo_line");
}

}  // namespace

void addUfunc(Space& space, const char* name, const Ufunc& ufunc) {
    static void* none[2] = {};
    std::string signature;
    for (int i = 0; i < ufunc.all; ++i) {
        signature += (i == 0 ? "" : i == ufunc.inputs ? "->" : ",");
        signature += ufunc.shapes[i];
    }
    // What is named after an argument, or has no form for one value.
    const std::string plain = std::string(name).substr(0, std::string(name).find('_'));
    const char* about = nullptr;
    for (const auto& [owner, member] :
         {std::pair(space.name, name), {space.name, plain.c_str()}, {"Batch", name}}) {
        if (about == nullptr) about = comment(owner, member);
    }
    Ref object(PyUFunc_FromFuncAndDataAndSignature(
        ufunc.loops, none, ufunc.types, ufunc.count, ufunc.inputs, ufunc.all - ufunc.inputs,
        PyUFunc_None, name, about != nullptr ? about : "", 0, signature.c_str()));
    check(PyObject_SetAttrString(space.module.get(), name, object.get()));
}

namespace {

/// The one function that works on each array as a whole: boxes in depth-first order, and how many
/// are below each.
void cullTree(char** args, const npy_intp* counts, const npy_intp* steps, void*) {
    guardedLoop([&] {
        const npy_intp* const strides = steps + 5;  // planes have 2, boxes 3, the other arrays 1
        const auto count = std::size_t(counts[3]);
        std::vector<BoundingBoxd> boxes(count);
        std::vector<unsigned> descendants(count), masks(count);
        std::vector<signed char> sides(count);
        for (npy_intp n = 0; n < counts[0]; ++n) {
            const auto at = [&](int array, npy_intp stride, std::size_t i) {
                return args[array] + n * steps[array] + npy_intp(i) * stride;
            };
            const auto region = Core<Polytope>::load(at(0, 0, 0), strides, counts + 1);
            for (std::size_t i = 0; i < count; ++i) {
                boxes[i] = Core<BoundingBoxd>::load(at(1, strides[2], i), strides + 3, nullptr);
                descendants[i] = Core<unsigned>::load(at(2, strides[5], i), nullptr, nullptr);
            }
            Batch::cullTree(region, boxes.data(), descendants.data(), sides.data(), masks.data(),
                            count);
            for (std::size_t i = 0; i < count; ++i) {
                Core<signed char>::store(sides[i], at(3, strides[6], i), nullptr);
                Core<unsigned>::store(sides[i] == 0 ? masks[i] : 0, at(4, strides[7], i), nullptr);
            }
        }
    });
}

void addCulling(Space& polytope, Space& frustum) {
    using B = BoundingBoxd;
    constexpr auto withRegion = [](const auto& region, const auto* boxes, bool* visible,
                                   const auto&... a) {
        Batch::cull(region, boxes, reinterpret_cast<unsigned char*>(visible), a...);
    };
    add<batched<contains, withRegion, One<Polytope>, In<B>, OutRow<bool>>()>(polytope, "contains");
    add<batched<cull, withRegion, One<Frustum>, In<BoundingBoxf>, OutRow<bool>>()>(frustum, "cull");
    add<batched<cullWithMask, KY_CALL(cullWithMasks), One<Polytope>, In<B>, OutRow<signed char>,
                OutRow<unsigned>>()>(polytope, "cullWithMasks");
    static PyUFuncGenericFunction loop = cullTree;
    static char types[] = {NPY_DOUBLE, NPY_DOUBLE, NPY_LONG, NPY_LONG, NPY_LONG};
    const char* const shapes[] = {"(n,4)", "(m,2,3)", "(m)", "(m)", "(m)"};
    addUfunc(polytope, "cullTree", {&loop, types, 1, 3, 5, shapes});
}

void addAll(PyObject* module) {
    const auto space = [module](const char* name) {
        const std::string full = std::string("kymath.arrays.") + name;
        Space made{name, Ref(share(PyImport_AddModule(full.c_str())))};
        check(PyModule_AddObjectRef(module, name, made.module.get()));
        return made;
    };
    Space two = space("Vector2"), three = space("Vector3"), four = space("Vector4");
    addVectors<float, double>(two, three, four);
    Space matrix = space("Matrix44"), transformation = space("Transformation");
    addMatrix<float, double>(matrix);
    addTransformation<float, double>(transformation);
    Space quaternion = space("Quaternion"), euler = space("KyEulerAngles");
    addQuaternion<float, double>(quaternion);
    addEulerAngles(euler);
    Space transform = space("KyTransform");
    addTransform(transform);
    Space boxes = space("BoundingBox"), planes = space("Plane");
    addBounds<float, double>(boxes, planes);
    Space line = space("Line3"), segment = space("Segment3");
    addLine<Line3>(line);
    addLine<Segment3>(segment);
    Space six = space("Vector6"), spheres = space("BoundingSphere"), rays = space("Rays");
    addVector6(six);
    addBoundingSphere(spheres);
    addRays<float, double>(rays);
    Space polytope = space("Polytope"), frustum = space("Frustum");
    addCulling(polytope, frustum);
    Space rest{"kymath", Ref(share(module))};
    add<&Ky::KY_ARE_EQUAL<double>>(rest, "KY_ARE_EQUAL");
    add<computeAngle>(rest, "KyComputeAngle");
    add<worldSpaceSegment>(rest, "getWorldSpaceSegment");
    add<&toTransform>(rest, "toTransform");
    add<&KyMath::toQuaternion>(rest, "toQuaternion");
    add<&inverseOf>(rest, "inverseOf");
}

}  // namespace

}  // namespace KyMath::python

PyMODINIT_FUNC PyInit__arrays() {
    using namespace KyMath::python;
    static PyModuleDef definition = {PyModuleDef_HEAD_INIT,
                                     "kymath._arrays",
                                     nullptr,
                                     -1,
                                     nullptr,
                                     nullptr,
                                     nullptr,
                                     nullptr,
                                     nullptr};
    import_array();
    import_umath();
    return guarded([] {
        Ref module(PyModule_Create(&definition));
        addAll(module.get());
        return module.release();
    });
}
