// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <sys/mman.h>

#include <algorithm>
#include <cfenv>
#include <tuple>
#include <vector>

namespace KyMath::test {
namespace {

// Each array call is compared with single calls, for arrays that end anywhere in a group, the
// largest of which has 16.

constexpr std::size_t kMost = 17;

void* mapped(std::size_t size) {
    void* const memory = mmap(nullptr, size, PROT_READ | PROT_WRITE,
                              MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    EXPECT_NE(MAP_FAILED, memory);
    return memory;
}

/// Memory whose end is followed by a page that cannot be read or written.
template <class V>
struct BeforeTheEnd {
    using value_type = V;
    static constexpr std::size_t kPage = 4096;

    BeforeTheEnd() = default;
    template <class U>
    BeforeTheEnd(const BeforeTheEnd<U>&) {}
    V* allocate(std::size_t n) {
        char* const pages = static_cast<char*>(mapped(2 * kPage));
        mprotect(pages + kPage, kPage, PROT_NONE);
        return reinterpret_cast<V*>(pages + kPage) - n;
    }
    void deallocate(V* p, std::size_t n) {
        munmap(reinterpret_cast<char*>(p + n) - kPage, 2 * kPage);
    }
    bool operator==(const BeforeTheEnd&) const {
        return true;
    }
    bool operator!=(const BeforeTheEnd&) const {
        return false;
    }
};
template <class V>
using Array = std::vector<V, BeforeTheEnd<V>>;

/// An element behind others, as in a client's structure.
template <class V>
struct Member {
    alignas(V) char before[alignof(V)];
    V value;
};
template <class V>
V* valuesOf(Array<Member<V>>& members) {
    return members.empty() ? nullptr : &members[0].value;
}

template <class V, class Make>
Array<V> list(Make make) {
    Array<V> values;
    values.reserve(kMost);
    for (std::size_t i = 0; i < kMost; ++i) values.push_back(make());
    return values;
}

/// Elements so far apart that 32 bits do not count the bytes between them. Only what is used takes
/// memory.
template <class V>
struct FarApart {
    static constexpr std::size_t kStride = std::size_t(1) << 30;
    char* const bytes = static_cast<char*>(mapped(kMost * kStride));

    ~FarApart() {
        munmap(bytes, kMost * kStride);
    }
    V& operator[](std::size_t i) {
        return reinterpret_cast<V&>(bytes[i * kStride]);
    }
};

/// all(in, out, n, strides) must do what one(v) does with each of n: into an array of its own, in
/// place within structures, and from each into the other.
template <class V, class All, class One>
void expectLikeSingle(const Array<V>& values, All all, One one) {
    FarApart<V> far;
    for (std::size_t n = 0; n <= kMost; ++n) {
        const Array<V> in(values.begin(), values.begin() + long(n));
        Array<V> out(n), packed(n);
        Array<Member<V>> inPlace(n), members(n);
        for (std::size_t i = 0; i < n; ++i) inPlace[i].value = far[i] = in[i];
        const std::size_t stride = sizeof inPlace[0];
        all(in.data(), out.data(), n, sizeof(V), sizeof(V));
        all(valuesOf(inPlace), packed.data(), n, stride, sizeof(V));
        all(valuesOf(inPlace), valuesOf(inPlace), n, stride, stride);
        all(in.data(), valuesOf(members), n, sizeof(V), stride);
        all(&far[0], &far[0], n, far.kStride, far.kStride);
        for (std::size_t i = 0; i < n; ++i) {
            EXPECT_BITS(one(in[i]), out[i]) << i << " of " << n;
            EXPECT_BITS(out[i], inPlace[i].value) << i << " of " << n;
            EXPECT_BITS(out[i], members[i].value) << i << " of " << n;
            EXPECT_BITS(out[i], packed[i]) << i << " of " << n;
            EXPECT_BITS(out[i], far[i]) << i << " of " << n;
        }
    }
}

/// all(in..., out, n, strides...) must do what one(value...) does for each of n, into an array of
/// its own and within structures, and with the first of each in for all.
template <class One, class All, class... In>
void expectEach(One one, All all, const Array<In>&... values) {
    using Out = decltype(one(values[0]...));
    for (std::size_t n = 0; n <= kMost; ++n) {
        const auto members = [n](const auto& list) {
            using V = typename std::decay_t<decltype(list)>::value_type;
            Array<Member<V>> m(n);
            for (std::size_t i = 0; i < n; ++i) m[i].value = list[i];
            return m;
        };
        Array<Out> out(n), forAll(n);
        Array<Member<Out>> member(n), alone(n);
        std::tuple<Array<Member<In>>...> inMembers{members(values)...};
        all((values.data() + kMost - n)..., out.data(), n, sizeof(In)..., sizeof(Out));
        all((values.data() + kMost - 1)..., forAll.data(), n, (sizeof(In) * 0)..., sizeof(Out));
        all(values.data()..., valuesOf(alone), n, sizeof(In)..., sizeof alone[0]);
        std::apply(
            [&](auto&... in) {
                all(valuesOf(in)..., valuesOf(member), n, sizeof in[0]..., sizeof member[0]);
            },
            inMembers);
        for (std::size_t i = 0; i < n; ++i) {
            EXPECT_BITS(one(values[kMost - n + i]...), out[i]) << i << " of " << n;
            EXPECT_BITS(one(values[kMost - 1]...), forAll[i]) << i << " of " << n;
            EXPECT_BITS(one(values[i]...), member[i].value) << i << " of " << n;
            EXPECT_BITS(member[i].value, alone[i].value) << i << " of " << n;
        }
    }
}

template <class T>
class BatchTest : public ::testing::Test {
protected:
    Corpus<T> corpus{1};

    Array<Vec<T>> vectors() {
        auto v = list<Vec<T>>([this] { return corpus.vector(); });
        v[2].x() = kInf<T>;
        v[6].z() = kNaN<T>;
        return v;
    }
    Array<Box<T>> boxes() {
        auto b = list<Box<T>>([this] { return corpus.box(); });
        b[3].init();
        b[5].xMax() = kNaN<T>;
        return b;
    }
    /// Of no special form, affine, affine without a finite translation, and such that w = x + 1.
    Array<Mat<T>> matrices() {
        auto m = list<Mat<T>>([this] { return corpus.matrix(); });
        m.resize(4);
        for (unsigned c = 0; c < 4; ++c) {
            for (std::size_t i = 1; i < 4; ++i) m[i](3, c) = c == 3 ? T(1) : T(0);
        }
        m[2](0, 3) = kInf<T>;
        m[3](3, 0) = 1;
        return m;
    }
};
TYPED_TEST_SUITE(BatchTest, Scalars, );

TYPED_TEST(BatchTest, TransformsLikeSingleCalls) {
    using T = TypeParam;
    // All w are 1 by an affine matrix, and all but one where w = x + 1.
    auto finite = list<Vec<T>>([this] { return this->corpus.vector(); });
    for (std::size_t i = 0; i < kMost; ++i) {
        if (i != 5) finite[i].x() = 0;
    }
    for (const Mat<T>& m : this->matrices()) {
        for (const auto& vectors : {this->vectors(), finite}) {
            expectLikeSingle(
                vectors, [&](auto... a) { Batch::transformPositions(m, a...); },
                [&](const auto& p) { return Transformation::transformPositionT(m, p); });
        }
        expectLikeSingle(
            this->vectors(), [&](auto... a) { Batch::transformDirections(m, a...); },
            [&](const auto& d) { return Transformation::transformDirectionT(m, d); });
        expectLikeSingle(
            this->boxes(), [&](auto... a) { Batch::transformBoxes(m, a...); },
            [&](const auto& box) { return after(box, [&](auto& b) { b.transform(m); }); });
    }
}

TYPED_TEST(BatchTest, MultipliesLikeSingleCalls) {
    using M = Matrix44T<TypeParam>;
    const auto make = [this] { return this->corpus.matrix(); };
    const Array<M> a = list<M>(make), b = list<M>(make);
    Array<M> overA = a, overB = b, byOne = b;
    Batch::multiply(overA.data(), b.data(), overA.data(), kMost);
    Batch::multiply(a.data(), overB.data(), overB.data(), kMost);
    Batch::multiply(a[0], byOne.data(), byOne.data(), kMost);
    for (std::size_t i = 0; i < kMost; ++i) {
        EXPECT_BITS(M::multiply(a[i], b[i]), overA[i]);
        EXPECT_BITS(M::multiply(a[i], b[i]), overB[i]);
        EXPECT_BITS(M::multiply(a[0], b[i]), byOne[i]);
    }
}

TYPED_TEST(BatchTest, DoesLikeSingleCalls) {
    using T = TypeParam;
    using V = Vec<T>;
    using Q = Quat<T>;
    using M = Mat<T>;
    using namespace Transformation;
    auto& random = this->corpus;
    auto vectors = this->vectors(), others = this->vectors();
    vectors[0] = vectors[kMost - 1] = V();
    vectors[4] = others[4];
    const auto normalized = [](auto v) { return after(v, [](auto& a) { a.normalize(); }); };
    const auto quaternion = [&] {
        const V v = random.vector();
        return Q(random.plain(), v.x(), v.y(), v.z());
    };
    const auto unit = [&] { return normalized(quaternion()); };
    auto quaternions = list<Q>(quaternion);
    const auto units = list<Q>(unit);
    auto ends = list<Q>(unit);
    ends[2] = units[2];
    ends[3] = Q(-units[3].x(), units[3].w(), units[3].z(), -units[3].y());  // a half turn away
    quaternions[1] = Q(0, 0, 0, 0);
    quaternions[3] = Q(T(1e-9), 0, T(1e-9), 0);
    quaternions[4][1] = kNaN<T>;
    const auto t = list<T>([&] { return std::abs(random.plain()) / 10; });
    const auto radii = list<T>([&] { return std::abs(random.plain()); });
    // Rotations of all forms, and a matrix without an inverse.
    auto matrices = list<M>([&] { return random.matrix(); });
    for (std::size_t i = 0; i < kMost; i += 2) matrices[i] = createRotationT(units[i]);
    matrices[1] *= 0;
    matrices[2] = M();  // no angles
    matrices[3] = createRotationT(V(0, 0, 1), T(3.1415926535897931));
    const auto normalOf = [](const V& a, const V& b, const V& c) {
        return after(V(), [&](V& n) { V::planeNormal(a, b, c, n); });
    };
#define EACH(name, one, ...) \
    expectEach(              \
        one, [](auto... a) { Batch::name(a...); }, __VA_ARGS__)
    EACH(
        dot, [](const V& a, const V& b) { return a * b; }, vectors, others);
    EACH(
        cross, [](const V& a, const V& b) { return a.cross(b); }, vectors, others);
    EACH(
        norm, [](const V& v) { return v.norm(); }, vectors);
    EACH(normalize, normalized, vectors);
    EACH(planeNormals, normalOf, vectors, others, this->vectors());
    EACH(
        multiply, [](const Q& a, const Q& b) { return a * b; }, quaternions, units);
    EACH(
        rotate, [](const Q& q, const V& v) { return q.rotate(v); }, quaternions, others);
    EACH(
        slerp, [](const Q& a, const Q& b, T s) { return a.slerp(b, s); }, units, ends, t);
    EACH(normalize, normalized, quaternions);
    EACH(
        createRotations, [](const Q& q) { return createRotationT(q); }, units);
    EACH(
        createRotations, [](const V& v) { return createRotationT(v.x(), v.y(), v.z()); }, others);
    EACH(
        inverse, [](const M& m) { return m.inverse(); }, matrices);
#undef EACH
    expectEach([&](const Q& q) { return q * units[0]; },
               [&](auto* in, auto* out, std::size_t n, std::size_t stride, std::size_t outStride) {
                   Batch::multiply(in, units.data(), out, n, stride, 0, outStride);
               },
               quaternions);
    for (const bool flag : {false, true}) {
        expectEach([&](const M& m) { return getRotationAsQuaternionT(m, flag); },
                   [&](auto* in, auto... a) { Batch::getRotationsAsQuaternions(in, flag, a...); },
                   matrices);
        expectEach([&](const M& m) { return getRotationT(m, flag); },
                   [&](auto* in, auto... a) { Batch::getRotations(in, flag, a...); }, matrices);
    }
    for (std::size_t n = 0; n <= kMost; ++n) {
        Box<T> grown(V(1, 2, 3), V(1, 2, 3)), expected = grown;
        Batch::expandBy(grown, vectors.data() + kMost - n, n);
        Array<signed char> sides(n);
        const PlaneT<T> plane(T(0.6), T(0.8), 0, 1);
        Batch::classify(plane, others.data() + kMost - n, radii.data() + kMost - n, sides.data(),
                        n);
        for (std::size_t i = 0; i < n; ++i) {
            const V &p = vectors[kMost - n + i], &c = others[kMost - n + i];
            expected.expandBy(p.x(), p.y(), p.z());
            EXPECT_EQ(plane.intersectBoundingSphere(c, radii[kMost - n + i]), sides[i]);
        }
        EXPECT_BITS(expected, grown);
    }
}

TYPED_TEST(BatchTest, ClassifiesLikeSingleCalls) {
    using T = TypeParam;
    const auto boxes = this->boxes();
    Array<Member<Box<T>>> members(kMost);
    for (std::size_t i = 0; i < kMost; ++i) members[i].value = boxes[i];
    int seen = 0;
    for (int i = 0; i < 20; ++i) {
        const Vec<T> n = this->corpus.vector();
        const PlaneT<T> plane(n, i < 2 ? n * T(2 - 4 * i) : this->corpus.vector() * T(0.25));
        for (std::size_t count = 1; count <= kMost; ++count) {
            const Box<T>* const last = &members[kMost - count].value;
            Array<signed char> sides(count);
            Batch::classify(plane, last, sides.data(), count, sizeof members[0]);
            for (std::size_t k = 0; k < count; ++k) {
                EXPECT_EQ(plane.intersect(members[kMost - count + k].value), sides[k]);
                seen |= 1 << (sides[k] + 1);
            }
        }
    }
    EXPECT_EQ(7, seen) << "all three answers";
}

using BatchDoubleTest = BatchTest<double>;

TEST_F(BatchDoubleTest, CompoundsLikeSingleCalls) {
    using Ky::KyTransform;
    const auto make = [this] { return KyTransform(corpus.matrix()); };
    const Array<KyTransform> a = list<KyTransform>(make), b = list<KyTransform>(make);
    for (const Array<KyTransform>& before :
         {a, b, list<KyTransform>(make)}) {  // the last row stays
        Array<KyTransform> out = before, first = a, second = b;
        KyTransform* const into = before == a   ? first.data()
                                  : before == b ? second.data()
                                                : out.data();
        Batch::compound(first.data(), second.data(), into, kMost);
        for (std::size_t i = 0; i < kMost; ++i) {
            EXPECT_BITS(KyTransform(before[i]).compound(a[i], b[i]).toMatrix44(),
                        into[i].toMatrix44());
        }
    }
}

TEST_F(BatchDoubleTest, TransformsByRigidTransformsLikeSingleCalls) {
    const Ky::KyTransform m(corpus.matrix());
    expectLikeSingle(
        vectors(), [&](auto... a) { Batch::transformPoints(m, a...); },
        [&](const auto& p) { return m.transformPoint(p); });
    expectLikeSingle(
        vectors(), [&](auto... a) { Batch::transformDirections(m, a...); },
        [&](const auto& d) { return m.transformDirection(d); });
}

TEST(BatchFloatTest, CullsLikeThePlanesOfAFrustum) {
    Corpus<float> corpus(1);
    Frustum frustum;
    frustum.setToWorldSpaceFrustum(Matrix44f(), Transformation::createScaleT(0.2f, 0.3f, 0.25f));
    int seen[2] = {};
    for (std::size_t n = 0; n < 140; n += n < 40 ? 1 : 33) {
        Array<BoundingBoxf> boxes(n);
        for (auto& box : boxes) box = corpus.box();
        if (n > 50) boxes[3].init();
        Array<unsigned char> visible(n);
        Batch::cull(frustum, boxes.data(), visible.data(), n);
        for (std::size_t i = 0; i < n; ++i) {
            int side = 1;
            for (unsigned k = 0; k < 6; ++k) {
                side = std::min(side, frustum.getPlane(k).intersect(boxes[i]));
            }
            EXPECT_EQ(side >= 0, visible[i]) << i << " of " << n;
            ++seen[visible[i]];
        }
    }
    EXPECT_TRUE(seen[0] > 9 && seen[1] > 9);
}

struct Node {
    unsigned descendants;
    BoundingBoxd box;
};
using Nodes = Array<Node>;

/// Nodes from begin to end get random numbers of nodes below them, and contain these.
void growTree(Corpus<double>& corpus, Nodes& nodes, std::size_t begin, std::size_t end) {
    for (std::size_t i = begin, after; i < end; i = after) {
        after = i + 1 + std::size_t(std::abs(corpus.plain()) / 10.1 * double(end - i));
        nodes[i] = {unsigned(after - i - 1), corpus.box()};
        growTree(corpus, nodes, i + 1, after);
        for (std::size_t k = i + 1; k < after; ++k) nodes[i].box += nodes[k].box;
    }
}

/// Each node from begin to end must have the results that the protocol of a polytope gives.
void expectProtocol(Polytope& view, const Nodes& nodes, std::size_t begin, std::size_t end,
                    const signed char* sides, const unsigned* masks) {
    for (std::size_t i = begin, after; i < end; i = after) {
        after = i + 1 + nodes[i].descendants;
        const bool seen = view.contains(nodes[i].box);
        const bool straddles = seen && view.getMaskStack().back() && view.getCurrentMask();
        EXPECT_EQ(straddles ? 0 : seen ? 1 : -1, sides[i]) << i;
        if (straddles) {
            EXPECT_EQ(view.getCurrentMask(), masks[i]) << i;
            view.pushCurrentMask();
            expectProtocol(view, nodes, i + 1, after, sides, masks);
            view.popCurrentMask();
        }
        for (std::size_t k = i + 1; k < after && !straddles; ++k) EXPECT_EQ(sides[i], sides[k]);
    }
}

TEST_F(BatchDoubleTest, CullsTreesLikeTheProtocol) {
    // Of the last plane, which is steeper than it seems, the upper corner is the lower one.
    const Polytope region(
        {{1, 0.2, 0, 6}, {-1, 0.1, 0, 7}, {0, -1, 0.3, 5}, {0, 0, 1, 8}, {1e-17, 0, 0, 0}});
    Polytope within = region, most(std::vector<Planed>(32, Planed(0.1, 1, 0.2, 2)));
    within.contains(BoundingBoxd(-1, 0, -1, 7, 7, 7));
    within.pushCurrentMask();
    most.add(Planed(0, 0, 0, -1));  // the 33rd does not count
    const Polytope steep({{1e-17, 1e-17, 1e-17, 0}});
    for (const Polytope& view : {region, steep, within, most, Polytope()}) {
        for (std::size_t n = 0; n < 70; ++n) {
            Nodes nodes(n);
            growTree(corpus, nodes, 0, n);
            if (n > 0) nodes[n - 1].box.xMax() = kNaN<double>;
            if (n > 8) nodes[n / 2].box.set(2, 2, 2, -2, -2, -2);
            const BoundingBoxd* const boxes = n == 0 ? nullptr : &nodes[0].box;
            Array<signed char> sides(n), flat(n);
            Array<unsigned> masks(n), flatMasks(n);
            Array<unsigned char> visible(n);
            Batch::cullTree(view, boxes, n == 0 ? nullptr : &nodes[0].descendants, sides.data(),
                            masks.data(), n, sizeof(Node), sizeof(Node));
            Batch::cullWithMasks(view, boxes, flat.data(), flatMasks.data(), n, sizeof(Node));
            Batch::cull(view, boxes, visible.data(), n, sizeof(Node));
            Polytope single = view;
            expectProtocol(single, nodes, 0, n, sides.data(), masks.data());
            for (std::size_t i = 0; i < n; ++i) {
                nodes[i].descendants = 0;
                EXPECT_EQ(flat[i] >= 0, visible[i]) << i << " of " << n;
            }
            expectProtocol(single, nodes, 0, n, flat.data(), flatMasks.data());
        }
    }
}

TEST_F(BatchDoubleTest, CullTreeStaysInItsArraysWhateverTheNumbers) {
    const Polytope region({{1, 0.2, 0, 1}, {-1, 0.1, 0, 1}});
    for (std::size_t n = 1; n < 60; ++n) {
        Nodes nodes(n);
        for (Node& node : nodes) {
            node = {unsigned(std::pow(10, corpus.plain())), corpus.box()};
        }
        Array<signed char> sides(n);
        Array<unsigned> masks(n);
        Batch::cullTree(region, &nodes[0].box, &nodes[0].descendants, sides.data(), masks.data(), n,
                        sizeof(Node), sizeof(Node));
    }
}

// Of four values computed at once, those that do not count overflow and divide as little as others.
TEST(LanesTest, RaiseNothingThatTheFormulaDoesNot) {
    const Ky::KyTransform far(Vector3d(1e200, 1e200, 1e200), Ky::KyEulerAngles());
    BoundingBoxd huge(-0.9e308, 0, 0, -0.8e308, 1, 1.7e308), small(1, 1, 1, 3, 3, 3);
    Matrix44d flat;
    flat(3, 3) = 0;
    const std::vector<Vector3d> ends = {Vector3d(1e308, 0, 0), Vector3d(-7e307, 0, 0)};
    std::vector<Vector3d> points;
    std::feclearexcept(FE_ALL_EXCEPT);
    Ky::KyTransform().compoundFirstThenInverseSecond(far, far);
    huge.transform(Matrix44d());
    BoundingBoxd().transform(flat);
    flat.inverse();
    CreateBezier(ends, 2, points);
    EXPECT_EQ(0, std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW));
    small.transform(flat);
    Transformation::transformPositionT(flat, Vector3d(1, 2, 3));
    EXPECT_EQ(FE_DIVBYZERO, std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW));
}

}  // namespace
}  // namespace KyMath::test
