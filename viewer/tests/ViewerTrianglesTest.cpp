// Delaunay triangles, compared with what they are by definition.
#include "Triangles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <utility>
#include <vector>

using namespace KivoViewer;

namespace {

struct Places {
    std::vector<double> x;
    std::vector<double> y;

    void Add(double px, double py) {
        x.push_back(px);
        y.push_back(py);
    }
    // Twice the area, positive where the corners go round to the left.
    double Turn(std::size_t a, std::size_t b, std::size_t c) const {
        return (x[b] - x[a]) * (y[c] - y[a]) - (x[c] - x[a]) * (y[b] - y[a]);
    }
    double Turn(const Corners& corners) const { return Turn(corners[0], corners[1], corners[2]); }
};

// Twice the area of the convex hull, by the lower and the upper chain.
double HullOf(const Places& places) {
    std::vector<std::size_t> order(places.x.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return std::pair(places.x[a], places.y[a]) < std::pair(places.x[b], places.y[b]);
    });
    double area = 0.0;
    for (const double side : {1.0, -1.0}) {
        std::vector<std::size_t> chain;
        for (const std::size_t i : order) {
            while (chain.size() > 1 && side * places.Turn(chain[chain.size() - 2], chain.back(), i) <= 0.0)
                chain.pop_back();
            chain.push_back(i);
        }
        for (std::size_t i = 1; i < chain.size(); ++i)
            area += side * places.Turn(order[0], chain[i - 1], chain[i]);
    }
    return area;
}

// How far a point lies within the circle around a triangle's corners, as a share of the triangle's sides.
double DepthIn(const Places& places, const Corners& corners, std::size_t point) {
    const auto [a, b, c] = corners;
    const double bx = places.x[b] - places.x[a], by = places.y[b] - places.y[a];
    const double cx = places.x[c] - places.x[a], cy = places.y[c] - places.y[a];
    const double px = places.x[point] - places.x[a], py = places.y[point] - places.y[a];
    const double bb = bx * bx + by * by, cc = cx * cx + cy * cy, pp = px * px + py * py;
    const double inside = px * (by * cc - cy * bb) - py * (bx * cc - cx * bb) + pp * (bx * cy - cx * by);
    const double turn = bx * cy - cx * by;
    return -inside / (std::abs(turn) * std::max({bb, cc, pp})) * (turn < 0.0 ? -1.0 : 1.0);
}

// No point lies in a triangle's circle, and all triangles together are the hull: they neither overlap nor
// leave anything out.
void ExpectDelaunay(const Places& places) {
    const std::vector<Corners> triangles = DelaunayTriangles(places.x, places.y);
    ASSERT_FALSE(triangles.empty());
    double area = 0.0;
    double deepest = 0.0;
    for (const Corners& corners : triangles) {
        area += std::abs(places.Turn(corners));
        if (places.Turn(corners) == 0.0) continue;
        for (std::size_t i = 0; i < places.x.size(); ++i)
            deepest = std::max(deepest, DepthIn(places, corners, i));
    }
    EXPECT_LT(deepest, 1e-5);
    EXPECT_NEAR(area / HullOf(places), 1.0, 1e-6);
}

Places Random(int count, double width, double height) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> part(0.0, 1.0);
    Places places;
    for (int i = 0; i < count; ++i) {
        const double x = part(random);
        places.Add(440000.0 + width * x, 5630000.0 + height * part(random));
    }
    return places;
}

TEST(ViewerTrianglesTest, AreThoseOfScatteredPoints) {
    ExpectDelaunay(Random(800, 1000.0, 700.0));
    ExpectDelaunay(Random(300, 1e-3, 1e-3));
    ExpectDelaunay(Random(300, 1000.0, 1.0));
}

// On the crossings of a grid four points lie on each circle, on circles many.
TEST(ViewerTrianglesTest, AreThoseOfPointsOnCircles) {
    Places grid, circles;
    for (int i = 0; i < 400; ++i)
        grid.Add(i % 20, 0.5 * (i / 20));
    ExpectDelaunay(grid);
    EXPECT_EQ(DelaunayTriangles(grid.x, grid.y).size(), 2U * 19U * 19U);
    for (int i = 0; i < 200; ++i)
        circles.Add(i % 4 * std::cos(i * 0.0314159265), i % 4 * std::sin(i * 0.0314159265));
    ExpectDelaunay(circles);
}

TEST(ViewerTrianglesTest, LeaveOutWhatIsThereTwice) {
    Places places = Random(200, 10.0, 10.0);
    const std::size_t count = DelaunayTriangles(places.x, places.y).size();
    for (std::size_t i = 0; i < 100; ++i)
        places.Add(places.x[i], places.y[i]);
    EXPECT_EQ(DelaunayTriangles(places.x, places.y).size(), count);
    ExpectDelaunay(places);
}

TEST(ViewerTrianglesTest, AreNoneOfPointsOnALine) {
    EXPECT_TRUE(DelaunayTriangles({}, {}).empty());
    EXPECT_TRUE(DelaunayTriangles({1.0, 1.0}, {2.0, 2.0}).empty());
    EXPECT_TRUE(DelaunayTriangles({0.0, 1.0, 2.0, 3.0}, {0.0, 1.0, 2.0, 3.0}).empty());
    EXPECT_TRUE(DelaunayTriangles({0.0, 5e-324, 0.0}, {0.0, 0.0, 0.0}).empty());
}

} // namespace
