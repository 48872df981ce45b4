// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// The tables of kymath.arrays: every function whose result has a fixed shape.
#include "Arrays.h"
#include "Results.h"

namespace KyMath::python {

// ---- Loops by the array calls of the library

/// Whether values of type V stand in an array as in C++, one after the other or further apart.
template <class V>
bool isPlain(npy_intp step, const npy_intp* strides) {
    const auto size = npy_intp(sizeof(V));
    return step >= size && std::equal(Layout<V>::kStrides, std::end(Layout<V>::kStrides), strides);
}

/// One matrix for all of the array.
template <Scalar T>
using Batched = void (*)(const Matrix44T<T>&, const Vector3T<T>*, Vector3T<T>*, std::size_t,
                         std::size_t, std::size_t);
template <Scalar T, Batched<T> kBatched>
bool byOneMatrix(char** args, npy_intp count, const npy_intp* steps) {
    using V = Vector3T<T>;
    if (steps[0] != 0 || !isPlain<V>(steps[1], steps + 5) || !isPlain<V>(steps[2], steps + 6)) {
        return false;
    }
    const auto m = Core<Matrix44T<T>>::load(args[0], steps + 3);
    kBatched(m, reinterpret_cast<V*>(args[1]), reinterpret_cast<V*>(args[2]), std::size_t(count),
             std::size_t(steps[1]), std::size_t(steps[2]));
    return true;
}
template <Scalar T>
bool transformBoxes(char** args, npy_intp count, const npy_intp* steps) {
    using B = BoundingBoxT<T>;
    if (steps[1] != 0 || !isPlain<B>(steps[0], steps + 3) || !isPlain<B>(steps[2], steps + 7)) {
        return false;
    }
    const auto m = Core<Matrix44T<T>>::load(args[1], steps + 5);
    Batch::transformBoxes(m, reinterpret_cast<B*>(args[0]), reinterpret_cast<B*>(args[2]),
                          std::size_t(count), std::size_t(steps[0]), std::size_t(steps[2]));
    return true;
}
/// In C order. Read column by column, that is the product of both transposed in reverse, of the
/// same terms in the same order.
template <Scalar T>
bool multiply(char** args, npy_intp count, const npy_intp* steps) {
    using M = Matrix44T<T>;
    const npy_intp cOrder[] = {4 * sizeof(T), sizeof(T)};
    for (int i = 0; i < 3; ++i) {
        const npy_intp step = steps[i];
        if (step != sizeof(M) && !(i == 1 && step == 0)) return false;
        if (!std::equal(cOrder, cOrder + 2, steps + 3 + 2 * i)) return false;
    }
    const auto* const a = reinterpret_cast<const M*>(args[0]);
    const auto* const b = reinterpret_cast<const M*>(args[1]);
    auto* const out = reinterpret_cast<M*>(args[2]);
    if (steps[1] == 0) {
        Batch::multiply(M(*b), a, out, std::size_t(count));
    } else {
        Batch::multiply(b, a, out, std::size_t(count));
    }
    return true;
}
template <Scalar T>
bool classify(char** args, npy_intp count, const npy_intp* steps) {
    using B = BoundingBoxT<T>;
    if (steps[0] != 0 || !isPlain<B>(steps[1], steps + 4)) return false;
    const auto plane = Core<PlaneT<T>>::load(args[0], steps + 3);
    constexpr npy_intp kBlock = 256;
    signed char sides[kBlock];
    for (npy_intp first = 0; first < count; first += kBlock) {
        const npy_intp size = std::min(kBlock, count - first);
        Batch::classify(plane, reinterpret_cast<B*>(args[1] + first * steps[1]), sides,
                        std::size_t(size), std::size_t(steps[1]));
        for (npy_intp i = 0; i < size; ++i) {
            *reinterpret_cast<npy_long*>(args[2] + (first + i) * steps[2]) = sides[i];
        }
    }
    return true;
}

template <class T>
using Product = Matrix44T<T> (*)(const Matrix44T<T>&, const Matrix44T<T>&);

/// By an array call on blocks of values, the inputs and then the output, wherever these are.
template <auto kBatch, class... V>
bool inBlocks(char** args, npy_intp count, const npy_intp* steps) {
    constexpr npy_intp kBlock = 32;
    constexpr std::size_t kOut = sizeof...(V) - 1;
    if (count < kBlock) return false;
    constexpr std::array ranks{Core<V>::kRank...};
    const npy_intp* strides[kOut + 1] = {steps + kOut + 1};
    for (std::size_t i = 0; i < kOut; ++i) strides[i + 1] = strides[i] + ranks[i];
    std::tuple<std::array<V, kBlock>...> blocks;
    const auto run = [&]<std::size_t... I>(std::index_sequence<I...>) {
        auto& out = std::get<kOut>(blocks);
        using Out = typename std::remove_reference_t<decltype(out)>::value_type;
        for (npy_intp first = 0; first < count; first += kBlock) {
            const npy_intp size = std::min(kBlock, count - first);
            const auto load = [&]<class A>(std::array<A, kBlock>& block, std::size_t i) {
                for (npy_intp n = 0; n < size; ++n) {
                    block[std::size_t(n)] =
                        Core<A>::load(args[i] + (first + n) * steps[i], strides[i]);
                }
            };
            (load(std::get<I>(blocks), I), ...);
            kBatch(std::get<I>(blocks).data()..., out.data(), std::size_t(size));
            for (npy_intp n = 0; n < size; ++n) {
                Core<Out>::store(out[std::size_t(n)], args[kOut] + (first + n) * steps[kOut],
                                 strides[kOut]);
            }
        }
    };
    run(std::make_index_sequence<kOut>());
    return true;
}

/// Boxes against the planes of a polytope, of all boxes or of each.
void cull(char** args, const npy_intp* counts, const npy_intp* steps, void*) {
    const auto regionAt = [&](const char* planes) {
        std::vector<Planed> list;
        for (npy_intp i = 0; i < counts[1]; ++i) {
            list.push_back(Core<Planed>::load(planes + i * steps[3], steps + 4));
        }
        return Polytope(list);
    };
    const bool one = steps[0] == 0 && steps[2] == 1 && isPlain<BoundingBoxd>(steps[1], steps + 5);
    try {
        if (one) {
            Batch::cull(regionAt(args[0]), reinterpret_cast<BoundingBoxd*>(args[1]),
                        reinterpret_cast<unsigned char*>(args[2]), std::size_t(counts[0]),
                        std::size_t(steps[1]));
        }
        for (npy_intp n = 0; n < (one ? 0 : counts[0]); ++n) {
            const auto box = Core<BoundingBoxd>::load(args[1] + n * steps[1], steps + 5);
            args[2][n * steps[2]] = regionAt(args[0] + n * steps[0]).contains(box);
        }
    } catch (const std::bad_alloc&) {
        const PyGILState_STATE state = PyGILState_Ensure();
        PyErr_NoMemory();
        PyGILState_Release(state);
    }
    std::feclearexcept(FE_ALL_EXCEPT);
}

#define KY_KERNELS(T)                                                                      \
    template <>                                                                            \
    inline constexpr Kernel kKernel<&Transformation::transformPositionT<T>> =              \
        byOneMatrix<T, Batch::transformPositions<T>>;                                      \
    template <>                                                                            \
    inline constexpr Kernel kKernel<&Transformation::transformDirectionT<T>> =             \
        byOneMatrix<T, Batch::transformDirections<T>>;                                     \
    template <>                                                                            \
    inline constexpr Kernel kKernel<&BoundingBoxT<T>::transform> = transformBoxes<T>;      \
    template <>                                                                            \
    inline constexpr Kernel kKernel<static_cast<Product<T>>(&Matrix44T<T>::multiply)> =    \
        multiply<T>;                                                                       \
    template <>                                                                            \
    inline constexpr Kernel kKernel<&PlaneT<T>::intersect> = classify<T>;                  \
    template <>                                                                            \
    inline constexpr Kernel kKernel<&Matrix44T<T>::inverse> =                              \
        inBlocks<[](auto... a) { Batch::inverse(a...); }, Matrix44T<T>, Matrix44T<T>>;     \
    template <>                                                                            \
    inline constexpr Kernel kKernel<&QuaternionT<T>::slerp> =                              \
        inBlocks<[](auto... a) { Batch::slerp(a...); }, QuaternionT<T>, QuaternionT<T>, T, \
                 QuaternionT<T>>;
KY_KERNELS(float)
KY_KERNELS(double)
#undef KY_KERNELS
template <>
inline constexpr Kernel kKernel<compound<&KyTransform::compound>> =
    inBlocks<[](auto... a) { Batch::compound(a...); }, KyTransform, KyTransform, KyTransform>;

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
    add<&V::norm...>(s, "norm");
    add<&V::length...>(s, "length");
    add<static_cast<void (V::*)()>(&V::normalize)...>(s, "normalize");
    add<[](const V& v, typename Layout<V>::Scalar divisor) { return v / divisor; }...>(s, "divide");
}

template <Scalar... T>
void addVectors(Space& two, Space& three, Space& four) {
    addVector<V2<T>...>(two);
    add<&V2<T>::dot...>(two, "dot");
    add<&V2<T>::cross...>(two, "cross");
    add<&V2<T>::rotate...>(two, "rotate");

    addVector<V3<T>...>(three);
    add<&V3<T>::isZero...>(three, "isZero");
    add<&V3<T>::isFinite...>(three, "isFinite");
    add<[](const V3<T>& a, const V3<T>& b) { return a * b; }...>(three, "dot");
    add<static_cast<V3<T> (*)(const V3<T>&, const V3<T>&)>(&V3<T>::multComp)...>(three, "multComp");
    add<&V3<T>::addMultiple...>(three, "addMultiple");
    add<&V3<T>::cross...>(three, "cross");
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
    add<static_cast<Product<T>>(&M<T>::multiply)...>(s, "multiply");
    add<&M<T>::divide...>(s, "divide");
    add<&M<T>::multiplyWithVector...>(s, "multiplyWithVector");
    add<&M<T>::determinant...>(s, "determinant");
    add<&M<T>::inverse...>(s, "inverse");
    add<&M<T>::inverse_orthogonal...>(s, "inverse_orthogonal");
    add<&M<T>::inverse_affine...>(s, "inverse_affine");
}

template <Scalar... T>
void addTransformation(Space& s) {
    using namespace Transformation;
    add<static_cast<M<T> (*)(const V3<T>&)>(&createScaleT<T>)...>(s, "createScaleT");
    add<static_cast<M<T> (*)(const V3<T>&)>(&createTranslationT<T>)...>(s, "createTranslationT");
    add<static_cast<M<T> (*)(T, T, T)>(&createRotationT<T>)...>(s, "createRotationT");
    add<static_cast<M<T> (*)(const Q<T>&)>(&createRotationT<T>)...>(s, "createRotationT_q");
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
    add<&getRotationT<T>...>(s, "getRotationT");
    add<&getRotationAsQuaternionT<T>...>(s, "getRotationAsQuaternionT");
    add<decompose<T>...>(s, "decomposeT");
    add<&composeT<T>...>(s, "composeT");
    add<&translateToT<T>...>(s, "translateToT");
    add<&rotateToT<T>...>(s, "rotateToT");
    add<&scaleToT<T>...>(s, "scaleToT");
    add<&transformPositionT<T>...>(s, "transformPositionT");
    add<&transformDirectionT<T>...>(s, "transformDirectionT");
    add<&linearVelocityT<T>...>(s, "linearVelocityT");
    add<&angularVelocityT<T>...>(s, "angularVelocityT");
    add<&isRotation<T>...>(s, "isRotation");
}

template <Scalar... T>
void addQuaternion(Space& s) {
    add<&Q<T>::areEqualTol...>(s, "areEqualTol");
    add<static_cast<Q<T> (Q<T>::*)(const Q<T>&) const>(&Q<T>::operator*)...>(s, "multiply");
    add<&Q<T>::dot...>(s, "dot");
    add<&Q<T>::norm...>(s, "norm");
    add<&Q<T>::getInverse...>(s, "getInverse");
    add<&Q<T>::rotate...>(s, "rotate");
    add<&Q<T>::normalize...>(s, "normalize");
    add<fromAxisAngle<T>...>(s, "fromAxisAngle");
    add<toAxisAngle<T>...>(s, "toAxisAngle");
    add<fromEulerXYZ<T>...>(s, "fromEulerXYZ");
    add<toEulerXYZ<T>...>(s, "toEulerXYZ");
    add<&Q<T>::finiteRotation...>(s, "finiteRotation");
    add<&Q<T>::slerp...>(s, "slerp");
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
    add<&B<T>::transform...>(boxes, "transform");
    add<&B<T>::inverseTransform...>(boxes, "inverseTransform");

    add<&P<T>::getNormal...>(planes, "getNormal");
    add<&P<T>::distance...>(planes, "distance");
    add<&P<T>::intersect...>(planes, "intersect");
    add<&P<T>::intersectBoundingSphere...>(planes, "intersectBoundingSphere");
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
    add<&T::transformPoint>(s, "transformPoint");
    add<&T::transformDirection>(s, "transformDirection");
    add<compound<&T::compound>>(s, "compound");
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

void addUfunc(Space& space, const char* name, const std::vector<PyUFuncGenericFunction>& loops,
              std::string types, std::size_t inputs, const char* const* shapes, std::size_t all) {
    // numpy keeps pointers to all of it.
    auto* const functions = new std::vector<PyUFuncGenericFunction>(loops);
    static void* none[2] = {};
    std::string signature;
    for (std::size_t i = 0; i < all; ++i) {
        signature += (i == 0 ? "" : i == inputs ? "->" : ",");
        signature += shapes[i];
    }
    const char* const about = comment(space.name, name);
    const auto keep = [](const std::string& text) { return (new std::string(text))->data(); };
    Ref ufunc(PyUFunc_FromFuncAndDataAndSignature(
        functions->data(), none, keep(types), int(loops.size()), int(inputs), int(all - inputs),
        PyUFunc_None, keep(name), keep(about != nullptr ? about : ""), 0, signature.c_str()));
    check(PyObject_SetAttrString(space.module.get(), name, ufunc.get()));
}

namespace {

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
    Space polytope = space("Polytope");
    const char* const shapes[] = {"(n,4)", "(2,3)", "()"};
    addUfunc(polytope, "contains", {cull}, {NPY_DOUBLE, NPY_DOUBLE, NPY_BOOL}, 2, shapes, 3);
    Space rest{"kymath", Ref(share(module))};
    add<&Ky::KY_ARE_EQUAL<double>>(rest, "KY_ARE_EQUAL");
    add<computeAngle>(rest, "KyComputeAngle");
    add<worldSpaceSegment>(rest, "getWorldSpaceSegment");
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
