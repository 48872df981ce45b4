// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0

// Measures rounding errors, and draws them into the current folder:
//
//   1. a table: the largest error of each function over 20,000 random arguments, and which lengths
//      are right;
//   2. accuracy.svg: inverses over the condition of the matrix, Euler angles near their pole;
//   3. gyroscope.svg: an orientation integrated from rates of turn, over time.
//
// The references are computed in long double, whose own errors are 2048 times smaller. An error is
// given in units of the machine epsilon of the type, times the largest value of the exact result.

#include "Plot.h"
#include "Program.h"

#include <KyMath/KyMath.h>

#include <array>
#include <cstdio>
#include <limits>
#include <random>

#pragma GCC diagnostic ignored "-Wdouble-promotion"  // to long double, for references

using namespace KyMath;
using Ky::KyEulerAngles;

namespace {

const std::string kBlue = "#2f6fdb", kGreen = "#2a9d60", kAmber = "#d97a10", kRed = "#d1495b";

// The references -------------------------------------------------------------------------------

using Real = long double;
using Rows = std::array<std::array<Real, 4>, 4>;

Rows product(const Rows& a, const Rows& b) {
    Rows result = {};
    for (std::size_t i = 0; i < 64; ++i) {
        result[i / 16][i / 4 % 4] += a[i / 16][i % 4] * b[i % 4][i / 4 % 4];
    }
    return result;
}

Rows diagonal(Real x, Real y, Real z) {
    return {{{x, 0, 0, 0}, {0, y, 0, 0}, {0, 0, z, 0}, {0, 0, 0, 1}}};
}

// About axis 0, 1 or 2.
Rows rotation(std::size_t axis, Real angle) {
    const std::size_t i = (axis + 1) % 3, j = (axis + 2) % 3;
    Rows result = diagonal(1, 1, 1);
    result[i][i] = result[j][j] = std::cos(angle);
    result[j][i] = std::sin(angle);
    result[i][j] = -result[j][i];
    return result;
}

// About z first, as createRotationT.
Rows rotation(Real x, Real y, Real z) {
    return product(rotation(0, x), product(rotation(1, y), rotation(2, z)));
}

// By elimination, with the largest pivot.
Rows inverse(Rows a) {
    Rows result = diagonal(1, 1, 1);
    for (std::size_t c = 0; c < 4; ++c) {
        std::size_t pivot = c;
        for (std::size_t r = c; r < 4; ++r) {
            if (std::abs(a[r][c]) > std::abs(a[pivot][c])) pivot = r;
        }
        std::swap(a[c], a[pivot]);
        std::swap(result[c], result[pivot]);
        for (std::size_t r = 0; r < 4; ++r) {
            const Real factor = r == c ? 1 - 1 / a[c][c] : a[r][c] / a[c][c];
            for (std::size_t k = 0; k < 4; ++k) {
                a[r][k] -= factor * a[c][k];
                result[r][k] -= factor * result[c][k];
            }
        }
    }
    return result;
}

using Values = std::vector<Real>;

Values values(const Rows& rows) {
    Values result;
    for (const auto& row : rows) result.insert(result.end(), row.begin(), row.end());
    return result;
}

template <class T>
Values values(const Matrix44T<T>& m) {
    return values(Rows{{{m(0, 0), m(0, 1), m(0, 2), m(0, 3)},
                        {m(1, 0), m(1, 1), m(1, 2), m(1, 3)},
                        {m(2, 0), m(2, 1), m(2, 2), m(2, 3)},
                        {m(3, 0), m(3, 1), m(3, 2), m(3, 3)}}});
}

template <class T>
Values values(const Vector3T<T>& v) {
    return {v.x(), v.y(), v.z()};
}

template <class T>
Values values(const QuaternionT<T>& q) {  // of q and -q, the one that begins above 0
    const Real sign = q.w() < 0 ? -1 : 1;
    return {sign * q.w(), sign * q.x(), sign * q.y(), sign * q.z()};
}

// Also rounds the reference to what it becomes as an argument.
template <class T>
Matrix44T<T> rounded(Rows& rows) {
    Matrix44T<T> m;
    for (std::size_t i = 0; i < 16; ++i) {
        rows[i / 4][i % 4] = m(i / 4, i % 4) = T(rows[i / 4][i % 4]);
    }
    return m;
}

template <class T>
double error(const Values& found, const Values& exact) {
    Real worst = 0, largest = 0;
    for (std::size_t i = 0; i < exact.size(); ++i) {
        const Real away = std::abs(found[i] - exact[i]);
        if (!(away <= worst)) worst = away;  // NaN stays
        largest = std::max(largest, std::abs(exact[i]));
    }
    return double(worst / largest) / double(std::numeric_limits<T>::epsilon());
}

struct Random {
    std::mt19937 numbers = std::mt19937(2026);  // gives the same on every system

    template <class T>
    T uniform(T low, T high) {
        return T(low + (high - low) * T(double(numbers()) / 4294967295.0));
    }
    template <class T>
    Vector3T<T> vector(T largest) {
        const T x = uniform(-largest, largest), y = uniform(-largest, largest);
        return {x, y, uniform(-largest, largest)};
    }
};

// 1. The table ---------------------------------------------------------------------------------

using Table = std::vector<std::pair<std::string, double>>;

// One more sample of each function: raises the worst errors so far.
template <class T>
void measure(Random& random, Table& table) {
    std::size_t row = 0;
    const auto add = [&](const char* name, const Values& found, const Values& exact) {
        if (row == table.size()) table.emplace_back(name, 0);
        table[row].second = std::max(table[row].second, error<T>(found, exact));
        ++row;
    };
    const Vector3T<T> v = random.vector(T(1));
    const Real x = v.x(), y = v.y(), z = v.z(), length = std::sqrt(x * x + y * y + z * z);
    add("length of a vector", {v.norm()}, {length});
    Vector3T<T> unit = v;
    unit.normalize();
    add("normalize a vector", values(unit), {x / length, y / length, z / length});

    const Rows turn = rotation(x, y, z);  // angles of at most 1
    const Real u[] = {x / 2, y / 2, z / 2};
    const auto half = [&](int sines) {  // a product of cosines, or of sines for the bits set
        Real result = 1;
        for (int i = 0; i < 3; ++i) result *= sines >> i & 1 ? std::sin(u[i]) : std::cos(u[i]);
        return result;
    };
    const Values fixedAxes = {half(0) + half(7), half(1) - half(6), half(2) + half(5),
                              half(4) - half(3)};
    QuaternionT<T> q;
    q.fromEulerXYZ(v.x(), v.y(), v.z());
    add("angles to quaternion, fromEulerXYZ", values(q), fixedAxes);
    Vector3T<T> angles;
    q.toEulerXYZ(&angles);
    add("and back, toEulerXYZ", values(angles), values(v));
    add("angles to matrix, createRotationT",
        values(Transformation::createRotationT(v.x(), v.y(), v.z())), values(turn));
    Rows argument = turn;
    const Matrix44T<T> m = rounded<T>(argument);
    add("and back, getRotationT", values(Transformation::getRotationT(m, false)), values(v));

    const QuaternionT<T> p(random.uniform(T(0.1), T(1)), v.x(), v.y(), v.z());
    const Real norm = std::sqrt(length * length + Real(p.w()) * p.w());
    const Values exact = {p.w() / norm, x / norm, y / norm, z / norm};
    QuaternionT<T> normalised = p;
    normalised.normalize();
    add("normalize a quaternion", values(normalised), exact);
    const Matrix44T<T> matrix = Transformation::createRotationT(p);
    const Real a = exact[0], b = exact[1], c = exact[2], d = exact[3];
    const Rows turned = {
        {{a * a + b * b - c * c - d * d, 2 * (b * c - a * d), 2 * (b * d + a * c), 0},
         {2 * (b * c + a * d), a * a - b * b + c * c - d * d, 2 * (c * d - a * b), 0},
         {2 * (b * d - a * c), 2 * (c * d + a * b), a * a - b * b - c * c + d * d, 0},
         {0, 0, 0, 1}}};
    add("quaternion to matrix, createRotationT", values(matrix), values(turned));
    argument = turned;
    add("and back, getRotationAsQuaternionT",
        values(Transformation::getRotationAsQuaternionT(rounded<T>(argument), false)), exact);

    const Vector3T<T> scale = {random.uniform(T(0.1), T(10)), random.uniform(T(0.1), T(10)), 1};
    const Vector3T<T> position = random.vector(T(10));
    Rows placement = product(turn, diagonal(scale.x(), scale.y(), scale.z()));
    for (int i = 0; i < 3; ++i) placement[std::size_t(i)][3] = position[i];
    add("composeT", values(Transformation::composeT(scale, v, position, T(1))), values(placement));
    Vector3T<T> scaleFound, anglesFound, positionFound;
    T sign;
    const Matrix44T<T> placed = rounded<T>(placement);
    Transformation::decomposeT(placed, scaleFound, anglesFound, positionFound, sign);
    add("decomposeT, scale", values(scaleFound), values(scale));
    add("decomposeT, angles", values(anglesFound), values(v));
    add("inverse of that", values(placed.inverse()), values(inverse(placement)));
    add("slerp", values(QuaternionT<T>().slerp(normalised, T(0.3))), [&] {
        const Real angle = std::acos(Real(normalised.w())), sine = std::sin(angle);
        const Real s = std::sin(angle * Real(T(0.3))) / sine;
        return Values{std::sin(angle * (1 - Real(T(0.3)))) / sine + s * normalised.w(),
                      s * normalised.x(), s * normalised.y(), s * normalised.z()};
    }());
}

void printTable() {
    Random random, same;
    Table single, both;
    for (int i = 0; i < 20000; ++i) measure<float>(random, single);
    for (int i = 0; i < 20000; ++i) measure<double>(same, both);
    std::printf("%-40s %7s %7s\n", "largest error, in units", "float", "double");
    for (std::size_t i = 0; i < both.size(); ++i) {
        std::printf("%-40s %7.1f %7.1f\n", both[i].first.c_str(), single[i].second, both[i].second);
    }
}

// Whether lengths from x to 2 x are right.
template <class T>
bool isRight(T x) {
    for (const T factor : {T(1), T(1.1), T(1.37), T(1.73), T(1.99)}) {
        if (Vector3T<T>(0, factor * x, 0).norm() != factor * x) return false;
    }
    return true;
}

// Between which lengths squares neither overflow nor lose digits, and which have no length at all.
template <class T>
void printRange(const char* name) {
    T low = 1, high = 1, least = 1;
    while (isRight(low / 2)) low /= 2;
    while (isRight(high)) high *= 2;
    while (Vector3T<T>(0, least / 2, 0).norm() > 0) least /= 2;
    std::printf("lengths in %s: right from %.1e to %.1e, 0 below %.1e\n", name, double(low),
                double(high), double(least));
}

// 2. Over the condition ------------------------------------------------------------------------

// Worst error of a measurement at each of many places, by powers of ten.
template <class Measure>
Svg::Points sweep(double from, double to, Measure once) {
    Svg::Points points;
    for (double power = from; power <= to + 0.01; power += 0.25) {
        Random random;
        double worst = 0;
        for (int i = 0; i < 200; ++i) {
            const double value = once(random, std::pow(10.0, power));
            if (!(value <= worst)) worst = value;
        }
        points.emplace_back(std::pow(10.0, power), worst, 0);
    }
    return points;
}

template <class T>
double inverseError(Random& random, double condition) {
    const Vector3d a = random.vector(3.0), b = random.vector(3.0);
    const Real root = std::sqrt(Real(condition));
    Rows exact = product(rotation(a.x(), a.y(), a.z()),
                         product(diagonal(root, 1, 1 / root), rotation(b.x(), b.y(), b.z())));
    const Matrix44T<T> m = rounded<T>(exact);
    return error<T>(values(m.inverse()), values(inverse(exact)));
}

enum Way { eQuaternion, eMatrix, eBack };

// Angles whose middle one is that far from a quarter turn, in radians, read from a quaternion by
// toEulerXYZ, or from its matrix; and the rotation that the latter give.
double anglesError(Way way, Random& random, double fromPole) {
    const double x = random.uniform(-1.0, 1.0), z = random.uniform(-1.0, 1.0);
    const Vector3d angles(x, std::acos(-1.0) / 2 - fromPole, z);
    Quaterniond q;
    q.fromEulerXYZ(angles.x(), angles.y(), angles.z());
    Vector3d found;
    q.toEulerXYZ(&found);
    if (way == eQuaternion) return error<double>(values(found), values(angles));
    KyEulerAngles read;
    read.fromMatrix44(Transformation::createRotationT(q), KyEulerAngles::eXYZr);
    if (way == eMatrix) return error<double>(values(read.angles()), values(angles));
    Matrix44d back;
    read.toMatrix44(back);
    const Rows yx = product(rotation(1, angles.y()), rotation(0, angles.x()));
    return error<double>(values(back), values(product(rotation(2, angles.z()), yx)));
}

void drawAccuracy() {
    Svg svg(900, 420);
    Plot inverses(svg, 70, 70, 350, 290, "Inverse", {0, 10, "condition of the matrix"},
                  {0, 16, "error in units"});
    inverses.curve(sweep(0, 10, inverseError<double>), kBlue, "double", 1e7, 20);
    inverses.curve(sweep(0, 4.5, inverseError<float>), kAmber, "float", 1e3, -30);
    Plot angles(svg, 530, 70, 350, 290, "Euler angles of a quaternion, in double",
                {0, -8, "radians from the pole"}, {0, 16, "error in units"});
    const auto by = [](Way way) {
        return sweep(-8, 0, [way](Random& random, double fromPole) {
            return anglesError(way, random, fromPole);
        });
    };
    angles.curve(by(eMatrix), kBlue, "fromMatrix44", 1e-7, -22);
    angles.curve(by(eQuaternion), kAmber, "toEulerXYZ", 1e-7, -28);
    angles.curve(by(eBack), kGreen, "and back to a matrix", 1e-3, 45);
    svg.save("accuracy.svg");
}

// 3. A gyroscope -------------------------------------------------------------------------------

// Where a body points at a time, and its rates of turn about its own axes, as a gyroscope measures
// them.
struct Motion {
    Quaterniond (*at)(double t);
    Vector3d (*rates)(double t);
};

const double kTurn = 6.283185307179586;
const Vector3d kX(1, 0, 0), kZ(0, 0, 1), kRates(1, 2, 3);

// Its z axis goes round a cone of 0.2 radians, once a second.
const Motion kWobble = {
    [](double t) {
        return Quaterniond(kZ, kTurn * t) * Quaterniond(kX, 0.2) * Quaterniond(kZ, -kTurn * t);
    },
    [](double t) { return kWobble.at(t).getInverse() * (kZ * kTurn) - kZ * kTurn; }};

const Motion kSteady = {[](double t) { return Quaterniond(kRates, kRates.norm() * t); },
                        [](double) { return kRates; }};

Vector3d atBegin(const Motion& motion, double begin, double) {
    return motion.rates(begin);
}

Vector3d mean(const Motion& motion, double begin, double end) {
    return (motion.rates(begin) + motion.rates(end)) * 0.5;
}

// The largest angle so far between exact and integrated orientation, in degrees, over time.
template <class T>
Svg::Points integrate(const Motion& motion, double frequency,
                      Vector3d (*rate)(const Motion&, double, double)) {
    Svg::Points errors;
    QuaternionT<T> q;
    for (int k = 0; k < 4; ++k) q[k] = T(motion.at(0)[k]);
    double next = 0.1, worst = 0;
    for (double step = 1; step <= 1000 * frequency; ++step) {
        const double t = step / frequency;
        const Vector3d omega = rate(motion, (step - 1) / frequency, t);
        const Vector3T<T> body = {T(omega.x()), T(omega.y()), T(omega.z())};
        q.finiteRotation(q * body, T(1 / frequency));  // which takes rates about fixed axes
        q.normalize();
        const Quaterniond off = Quaterniond(q.w(), q.x(), q.y(), q.z()) * motion.at(t).getInverse();
        const double sine = Vector3d(off.x(), off.y(), off.z()).norm();
        worst = std::max(worst, std::asin(std::min(sine, 1.0)) * 2 * 360 / kTurn);
        if (t < next) continue;
        errors.emplace_back(t, worst, 0);
        next = t * 1.1;
    }
    return errors;
}

void drawGyroscope() {
    Svg svg(900, 420);
    Plot plot(svg, 70, 70, 800, 290, "Integrated from rates of turn: error of the orientation",
              {-1, 3, "seconds"}, {-14, 2, "degrees"});
    plot.curve(integrate<double>(kWobble, 100, atBegin), kRed,
               "a wobble, 100 Hz, rate at the start of each step", 2, 10);
    plot.curve(integrate<double>(kWobble, 100, mean), kAmber, "100 Hz, mean of start and end", 0.35,
               9);
    plot.curve(integrate<double>(kWobble, 1000, mean), kBlue, "1000 Hz, mean", 30, -26);
    plot.curve(integrate<float>(kWobble, 1000, mean), kGreen, "1000 Hz in float", 0.3, 12);
    plot.curve(integrate<double>(kSteady, 100, mean), "#6b7485", "steady rates: rounding only", 3,
               14);
    svg.save("gyroscope.svg");
}

int run(CLI::App& app, int argc, char** argv) {
    parseOptions(app, argc, argv);
    printTable();
    printRange<float>("float");
    printRange<double>("double");
    drawAccuracy();
    drawGyroscope();
    std::printf("wrote accuracy.svg, gyroscope.svg\n");
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    return runProgram("accuracy",
                      "Measures rounding errors and draws them into the current folder.", run, argc,
                      argv);
}
