// The tile effect: the plane under the part cut into cells, each holding one
// tile of one color with seams between them.
//
// | field           | in the picture                                                        |
// |-----------------|-----------------------------------------------------------------------|
// | shape           | the cells, table below; an unknown code paints as 0                   |
// | width, height   | the cell's size in pixels, 1..2^20 (below 1 counts as 1, NaN as 10)   |
// | rowShift        | squares and circles: odd rows shifted right by rowShift x width (its |
// |                 | fraction; 0.5 gives bricks; NaN is 0); other shapes ignore it         |
// | seamWidth       | pixels between neighbouring tiles: each tile is its cell moved in by  |
// |                 | half of it on every side; below 0 (or NaN) none, at most 2^21; as     |
// |                 | wide as the cell leaves only seam                                     |
// | seamColor       | the seams' color                                                      |
// | transparentSeam | nonzero: the seams keep the part's own pixels instead                 |
// | cornerCut       | c in 0..1 (clamped, NaN 0): every corner of a tile is cut off between |
// |                 | the two points c x half the adjacent edge's length from it (c = 1 on a |
// |                 | square: a diamond through the edge midpoints); circles ignore it      |
// | roundCorners    | nonzero: that cut is an arc tangent to both edges at those points,    |
// |                 | circular where the two lengths are equal, elliptical where not (c = 1: |
// |                 | the inscribed circle or ellipse); circles ignore it                   |
// | angle           | degrees, counter-clockwise: the whole tiling turned about the box's   |
// |                 | centre                                                                |
// | coloring        | each tile's color, table below; an unknown code paints as 0           |
// | colors          | the tiles' colors; a missing second repeats the first; none: black    |
// |                 | and white                                                             |
//
// | shape | cells, laid out on the part's box, origin at its centre                       |
// |-------|-------------------------------------------------------------------------------|
// | 0     | width x height rectangles in rows; grid lines cross at the origin             |
// | 1     | the same grid, each tile the ellipse inscribed in its cell (a circle when     |
// |       | width = height)                                                               |
// | 2     | triangles of base 2 x width and height `height`, pointing up and down in      |
// |       | turn, width apart along each row; the rows and both slopes run straight       |
// |       | across; a vertex at the origin                                                |
// | 3     | pointy-top hexagons, width flat to flat and height point to point, rows       |
// |       | 0.75 x height apart, odd rows shifted by width / 2; a centre at the origin    |
//
// | coloring | each tile                                                                  |
// |----------|----------------------------------------------------------------------------|
// | 0        | colors 1 and 2 in turn: squares and circles as a checkerboard (columns     |
// |          | counted in each row's own shifted grid), triangles up against down,        |
// |          | hexagons by rows: of three hexagons meeting at a corner two share a color, |
// |          | so on average a hexagon touches at least two of its own; by rows each      |
// |          | touches exactly two, its left and right neighbours                         |
// | 1        | one of all the colors at random                                            |
// | 2        | each channel at random between colors 1 and 2, independently               |
// | 3        | one random point between colors 1 and 2, the same for every channel        |
// | 4        | the mean, weighted by coverage, of the part's pixels whose centres lie in  |
// |          | its cell, taken before painting (a mosaic); where a cell holds none (only  |
// |          | an edge pixel's samples reach it) the pixel keeps its own color. The sums  |
// |          | take at most about 20 bytes per pixel of the box (-2 when they cannot be   |
// |          | had), their threads fewer when tiles are tiny                              |
//
// Random choices hash options.seed with the tile's column and row. A pixel
// whose 4 x 4 samples (all within 0.53 px of its centre) do not all fall in
// one tile, or all in seam, is their mean; the others take one color.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <new>
#include <vector>

#include "render/RenderCore.h"

namespace vellrender {

namespace {

const float kMaxSize = 1048576.0f;
const int kSamples = 16;
const float kFar = std::numeric_limits<float>::max();
// A packed color (blue, green, red from the low byte) with this bit set stands
// for the picture's own pixel.
const std::uint32_t kOwn = 1u << 24;

enum Shape { kSquares = 0, kCircles = 1, kTriangles = 2, kHexagons = 3 };

// Clamped first: an int cannot hold what a huge picture's far corner gives.
inline int FloorInt(float v) {
    v = std::min(std::max(v, -1e9f), 1e9f);
    const int i = static_cast<int>(v);
    return i - (static_cast<float>(i) > v);
}

struct Vec {
    float x, y;
};

// ---- Cells ----------------------------------------------------------------

// Pixel x of row y sits at (u + x cosA, v - x sinA) of the frame: the sums and
// the painting place every pixel alike.
inline void RowStart(const Frame& f, int y, float* u, float* v) {
    f.Local(0.5f, y + 0.5f, u, v);
}

// A point's cell and its place in the upright tile: origin at the tile's
// centre (triangles: the middle of the base, down ones mirrored upright).
struct Spot {
    int col, row;
    float x, y;
};

struct Lattice {
    int shape;
    float w, h, invW, invH;
    float shift;   // odd rows' shift
    float pitch;   // distance between rows
    float squash;  // hexagons: the square of the y scale that makes them regular

    float RowShift(int row) const { return (row & 1) ? shift : 0.0f; }
};

inline Spot FindRectangle(const Lattice& l, float u, float v) {
    const float fv = v * l.invH;
    const int row = FloorInt(fv);
    const float fu = (u - l.RowShift(row)) * l.invW;
    const int col = FloorInt(fu);
    return {col, row, (fu - col - 0.5f) * l.w, (fv - row - 0.5f) * l.h};
}

// Triangle `col` of a row has its apex (up) or its base's middle (down) at
// col x width; up where col + row is even.
inline Spot FindTriangle(const Lattice& l, float u, float v) {
    const float fv = v * l.invH, fu = u * l.invW;
    const int row = FloorInt(fv), first = FloorInt(fu);
    const float fy = fv - row, fx = fu - first;
    const bool firstUp = ((first + row) & 1) == 0;
    // The slanted edge between triangles `first` and `first + 1`.
    const int col = first + (firstUp ? fx + fy >= 1.0f : fx >= fy);
    const bool up = ((col + row) & 1) == 0;
    return {col, row, (fu - col) * l.w, (up ? fy : 1.0f - fy) * l.h};
}

// The nearest centre with y scaled so the hexagon is regular: its cell is the
// hexagon. Only the rows just below and above can hold it.
inline Spot FindHexagon(const Lattice& l, float u, float v) {
    const int below = FloorInt(v / l.pitch);
    Spot best{0, 0, 0.0f, 0.0f};
    float bestDistance = kFar;
    for (int row = below; row <= below + 1; ++row) {
        const float s = l.RowShift(row);
        const int col = FloorInt((u - s) * l.invW + 0.5f);
        const float x = u - s - col * l.w, y = v - row * l.pitch;
        const float d = x * x + y * y * l.squash;
        if (d < bestDistance) {
            bestDistance = d;
            best = {col, row, x, y};
        }
    }
    return best;
}

// The hot loops are made for each kind of cell: kCells is kTriangles,
// kHexagons, or kSquares for the rectangles of squares and circles.
template <int kCells>
inline Spot Find(const Lattice& l, float u, float v) {
    if (kCells == kTriangles) return FindTriangle(l, u, v);
    if (kCells == kHexagons) return FindHexagon(l, u, v);
    return FindRectangle(l, u, v);
}

Lattice MakeLattice(int shape, float w, float h, float rowShift) {
    Lattice l{shape, w, h, 1.0f / w, 1.0f / h, 0.0f, h, 1.0f};
    if (shape == kHexagons) {
        l.shift = 0.5f * w;
        l.pitch = 0.75f * h;
        const float scale = 2.0f * w / std::sqrt(3.0f) / h;
        l.squash = scale * scale;
    } else if (shape != kTriangles) {
        l.shift = (rowShift - std::floor(rowShift)) * w;
    }
    return l;
}

// ---- The tile's outline ---------------------------------------------------

struct Polygon {
    int n = 0;
    Vec v[16];
};

// The cell counter-clockwise in the upright tile's frame.
Polygon CellPolygon(int shape, float w, float h) {
    Polygon p;
    auto add = [&p](float x, float y) { p.v[p.n++] = {x, y}; };
    if (shape == kTriangles) {
        add(-w, 0);
        add(w, 0);
        add(0, h);
    } else if (shape == kHexagons) {
        for (const Vec& c : {Vec{0, -2}, Vec{1, -1}, Vec{1, 1}, Vec{0, 2}, Vec{-1, 1}, Vec{-1, -1}})
            add(0.5f * w * c.x, 0.25f * h * c.y);
    } else {
        add(-0.5f * w, -0.5f * h);
        add(0.5f * w, -0.5f * h);
        add(0.5f * w, 0.5f * h);
        add(-0.5f * w, 0.5f * h);
    }
    return p;
}

// The convex polygon cut by the half-plane n . p <= d.
Polygon Clip(const Polygon& p, float nx, float ny, float d) {
    Polygon out;
    for (int i = 0; i < p.n && out.n + 2 <= 16; ++i) {
        const Vec a = p.v[i], b = p.v[(i + 1) % p.n];
        const float da = nx * a.x + ny * a.y - d, db = nx * b.x + ny * b.y - d;
        if (da <= 0.0f) out.v[out.n++] = a;
        if ((da < 0.0f && db > 0.0f) || (da > 0.0f && db < 0.0f)) {
            const float t = da / (da - db);
            out.v[out.n++] = {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)};
        }
    }
    return out;
}

// The inside of a line: n . p - d < 0.
struct Plane {
    float nx, ny, d;
    float At(float x, float y) const { return nx * x + ny * y - d; }
};

// A corner cut by an arc. The map m takes p - corner to a frame where both cut
// lengths equal `reach` (the edges keep their directions u1, u2), and there
// the arc is a circle about c tangent to both edges. It only has a say where
// q . u1 < reach and q . u2 < reach, between the normals at the tangent
// points: its sway, kept as the outline's planes `sway` and `sway + 1`.
struct Arc {
    Vec corner;
    float m[4];
    Vec u1, u2;
    float reach;
    Vec c;
    float r;
    float stretch;  // the most the map lengthens anything
    int sway;
};

// The tile in its upright frame. plane[0, edges) are the cell's edges moved in
// by half the seam, [edges, exact) the corners' straight cuts; together the
// tile's edge. [exact, planes) are the arcs' sways.
struct Outline {
    static const int kMost = 20, kMostArcs = 8;
    int edges = 0, exact = 0, planes = 0;
    Plane plane[kMost];
    float inset = 0.0f;
    bool empty = false;
    // sin(angle / 2) at the cell's sharpest corner: a point beyond the cell
    // is at most 1 / sharpest times its largest edge value away from it.
    float sharpest = 1.0f;
    int arcs = 0;
    Arc arc[kMostArcs];
};

// The distance from the arc's circle, negative inside, at most the true one
// in pixels.
float CircleGap(const Arc& a, float x, float y) {
    const float px = x - a.corner.x, py = y - a.corner.y;
    const float qx = a.m[0] * px + a.m[1] * py - a.c.x, qy = a.m[2] * px + a.m[3] * py - a.c.y;
    return (std::sqrt(qx * qx + qy * qy) - a.r) / a.stretch;
}

// Whether the arc cuts (x, y) off: in its sway and outside its circle.
bool CutByArc(const Arc& a, float x, float y) {
    const float px = x - a.corner.x, py = y - a.corner.y;
    const float qx = a.m[0] * px + a.m[1] * py, qy = a.m[2] * px + a.m[3] * py;
    if (qx * a.u1.x + qy * a.u1.y >= a.reach || qx * a.u2.x + qy * a.u2.y >= a.reach) return false;
    const float dx = qx - a.c.x, dy = qy - a.c.y;
    return dx * dx + dy * dy >= a.r * a.r;
}

bool InsideTile(const Outline& o, float x, float y) {
    for (int i = 0; i < o.exact; ++i) {
        if (o.plane[i].At(x, y) >= 0.0f) return false;
    }
    for (int i = 0; i < o.arcs; ++i) {
        if (CutByArc(o.arc[i], x, y)) return false;
    }
    return true;
}

Vec Normalized(Vec v) {
    const float len = std::sqrt(v.x * v.x + v.y * v.y);
    return {v.x / len, v.y / len};
}

// n . p < d with n scaled to unit length.
Plane UnitPlane(Vec n, float d) {
    const float len = std::sqrt(n.x * n.x + n.y * n.y);
    return {n.x / len, n.y / len, d / len};
}

// The line through a and b, its inside away from `corner`.
Plane Chord(Vec corner, Vec a, Vec b) {
    Vec n = Normalized({b.y - a.y, a.x - b.x});
    if (n.x * (corner.x - a.x) + n.y * (corner.y - a.y) < 0.0f) n = {-n.x, -n.y};
    return {n.x, n.y, n.x * a.x + n.y * a.y};
}

// e1, e2: from the corner to the arc's tangent points.
Arc MakeArc(Vec corner, Vec e1, Vec e2) {
    Arc a;
    a.corner = corner;
    const float l1 = std::hypot(e1.x, e1.y), l2 = std::hypot(e2.x, e2.y);
    a.u1 = {e1.x / l1, e1.y / l1};
    a.u2 = {e2.x / l2, e2.y / l2};
    a.reach = std::sqrt(l1 * l2);
    // m = U diag(reach / l1, reach / l2) U^-1, U's columns u1 and u2.
    const float k1 = a.reach / l1, k2 = a.reach / l2;
    const float det = a.u1.x * a.u2.y - a.u2.x * a.u1.y;
    const float inv[4] = {a.u2.y / det, -a.u2.x / det, -a.u1.y / det, a.u1.x / det};
    const float uk[4] = {a.u1.x * k1, a.u2.x * k2, a.u1.y * k1, a.u2.y * k2};
    a.m[0] = uk[0] * inv[0] + uk[1] * inv[2];
    a.m[1] = uk[0] * inv[1] + uk[1] * inv[3];
    a.m[2] = uk[2] * inv[0] + uk[3] * inv[2];
    a.m[3] = uk[2] * inv[1] + uk[3] * inv[3];
    // The largest singular value of m.
    const float t = a.m[0] * a.m[0] + a.m[1] * a.m[1] + a.m[2] * a.m[2] + a.m[3] * a.m[3];
    const float d = a.m[0] * a.m[3] - a.m[1] * a.m[2];
    a.stretch = std::sqrt(0.5f * (t + std::sqrt(std::max(0.0f, t * t - 4.0f * d * d))));
    // The circle's centre lies on the bisector, reach / cos(half angle) away.
    const float cosAngle = std::max(-0.9999f, std::min(0.9999f, a.u1.x * a.u2.x + a.u1.y * a.u2.y));
    const Vec bisector = Normalized({a.u1.x + a.u2.x, a.u1.y + a.u2.y});
    const float toCentre = a.reach / std::sqrt(0.5f * (1.0f + cosAngle));
    a.c = {bisector.x * toCentre, bisector.y * toCentre};
    a.r = a.reach * std::sqrt((1.0f - cosAngle) / (1.0f + cosAngle));
    return a;
}

// The arc's sway, q . u < reach, as a plane of the upright frame.
Plane Sway(const Arc& a, Vec u) {
    const Vec n = {a.m[0] * u.x + a.m[2] * u.y, a.m[1] * u.x + a.m[3] * u.y};
    return UnitPlane(n, a.reach + n.x * a.corner.x + n.y * a.corner.y);
}

Outline MakeOutline(int shape, float w, float h, float seam, bool round, float cut) {
    Outline o;
    const Polygon cell = CellPolygon(shape, w, h);
    o.inset = 0.5f * seam;
    Polygon tile = cell;
    for (int i = 0; i < cell.n; ++i) {
        const Vec a = cell.v[i], b = cell.v[(i + 1) % cell.n], c = cell.v[(i + 2) % cell.n];
        const Vec n = Normalized({b.y - a.y, a.x - b.x});
        o.plane[o.edges++] = {n.x, n.y, n.x * a.x + n.y * a.y - o.inset};
        tile = Clip(tile, n.x, n.y, o.plane[i].d);
        const Vec ba = Normalized({a.x - b.x, a.y - b.y}), bc = Normalized({c.x - b.x, c.y - b.y});
        const float cosAngle = ba.x * bc.x + ba.y * bc.y;
        o.sharpest = std::min(o.sharpest, std::sqrt(std::max(0.0f, 0.5f * (1.0f - cosAngle))));
    }
    o.exact = o.planes = o.edges;
    // Corners of edges the seam swallowed coincide: keep one.
    const float eps = 1e-4f * (w + h);
    Polygon corners;
    for (int i = 0; i < tile.n; ++i) {
        const Vec a = tile.v[i], b = tile.v[(i + 1) % tile.n];
        if (std::fabs(a.x - b.x) + std::fabs(a.y - b.y) > eps) corners.v[corners.n++] = a;
    }
    o.empty = corners.n < 3;
    if (o.empty) {
        o.plane[o.planes++] = {0.0f, 0.0f, -1.0f};  // outside everywhere
        o.exact = o.planes;
        return o;
    }
    if (shape == kCircles) {
        round = true;
        cut = 1.0f;
    }
    if (cut <= 0.0f) return o;
    for (int i = 0; i < corners.n; ++i) {
        const Vec v = corners.v[i], prev = corners.v[(i + corners.n - 1) % corners.n],
                  next = corners.v[(i + 1) % corners.n];
        const Vec e1 = {0.5f * cut * (prev.x - v.x), 0.5f * cut * (prev.y - v.y)};
        const Vec e2 = {0.5f * cut * (next.x - v.x), 0.5f * cut * (next.y - v.y)};
        if (std::hypot(e1.x, e1.y) < 1e-4f || std::hypot(e2.x, e2.y) < 1e-4f) continue;
        if (!round && o.planes < Outline::kMost) {
            o.plane[o.planes++] = Chord(v, {v.x + e1.x, v.y + e1.y}, {v.x + e2.x, v.y + e2.y});
            o.exact = o.planes;
        } else if (round && o.arcs < Outline::kMostArcs && o.planes + 2 <= Outline::kMost) {
            Arc& a = o.arc[o.arcs++];
            a = MakeArc(v, e1, e2);
            a.sway = o.planes;
            o.plane[o.planes++] = Sway(a, a.u1);
            o.plane[o.planes++] = Sway(a, a.u2);
        }
    }
    return o;
}

// How each plane's value changes from a pixel's centre to its 4 x 4 samples
// and to the next pixel of the row, in the upright tile's frame; down
// triangles, mirrored upright, have their own.
struct Steps {
    float dx, dy;  // the next pixel
    float step[Outline::kMost];
    // Pixels for the value to rise (fall) by 1; kFar if it never does.
    float perRise[Outline::kMost], perFall[Outline::kMost];
    float most[Outline::kMost], least[Outline::kMost];
    float toSample[Outline::kMost][kSamples];
    float sorted[Outline::kMost][kSamples];  // toSample in ascending order
    float sampleX[kSamples], sampleY[kSamples];
};

void MakeSteps(const Outline& o, const Frame& f, bool mirrored, Steps* s) {
    const float flip = mirrored ? -1.0f : 1.0f;
    s->dx = f.cosA;
    s->dy = -flip * f.sinA;
    for (int k = 0; k < kSamples; ++k) {
        const float dx = (k % 4 + 0.5f) / 4 - 0.5f, dy = (k / 4 + 0.5f) / 4 - 0.5f;
        s->sampleX[k] = f.cosA * dx + f.sinA * dy;
        s->sampleY[k] = flip * (-f.sinA * dx + f.cosA * dy);
    }
    for (int i = 0; i < o.planes; ++i) {
        const Plane& p = o.plane[i];
        s->step[i] = p.nx * s->dx + p.ny * s->dy;
        s->perRise[i] = s->step[i] > 0.0f ? 1.0f / s->step[i] : kFar;
        s->perFall[i] = s->step[i] < 0.0f ? -1.0f / s->step[i] : kFar;
        s->most[i] = -kFar;
        s->least[i] = kFar;
        for (int k = 0; k < kSamples; ++k) {
            const float d = p.nx * s->sampleX[k] + p.ny * s->sampleY[k];
            s->toSample[i][k] = d;
            s->most[i] = std::max(s->most[i], d);
            s->least[i] = std::min(s->least[i], d);
        }
        std::copy(s->toSample[i], s->toSample[i] + kSamples, s->sorted[i]);
        std::sort(s->sorted[i], s->sorted[i] + kSamples);
    }
}

// How many pixels from this one on, up to `most`, keep every value below 0,
// each rising by 1 in perRise pixels (at least 1).
int RunLength(const float* value, const float* perRise, int planes, int most) {
    float run = kFar;
    for (int i = 0; i < planes; ++i) {
        if (value[i] >= 0.0f) return 1;
        run = std::min(run, -value[i] * perRise[i]);
    }
    // Within [0, 1e9] before the cast: absurd sizes can make it anything.
    return std::max(
        1, std::min(most, static_cast<int>(std::ceil(std::min(std::max(run, 0.0f), 1e9f)))));
}

// ---- Which cells the box reaches, for the mosaic's sums ---------------------

// Every cell a sample inside the box can fall in, numbered row by row, each
// row holding only the columns the box reaches there: about as many entries
// as the box holds tiles, however it is turned.
struct CellIndex {
    int firstRow = 0;
    std::vector<int> firstCol, count;
    std::vector<std::ptrdiff_t> start;
    std::ptrdiff_t size = 0;

    std::ptrdiff_t Find(int col, int row) const {
        const std::size_t r = static_cast<std::size_t>(row) - static_cast<std::size_t>(firstRow);
        if (r >= count.size()) return -1;
        const unsigned c = static_cast<unsigned>(col - firstCol[r]);
        return c < static_cast<unsigned>(count[r]) ? start[r] + c : -1;
    }
};

// The u extent of the convex quad `q` between the lines v = lo and v = hi.
bool SpanInBand(const Vec* q, float lo, float hi, float* uMin, float* uMax) {
    float a = kFar, b = -kFar;
    for (int i = 0; i < 4; ++i) {
        const Vec p = q[i], n = q[(i + 1) % 4];
        if (p.y >= lo && p.y <= hi) a = std::min(a, p.x), b = std::max(b, p.x);
        for (float level : {lo, hi}) {
            if ((p.y - level) * (n.y - level) >= 0.0f) continue;
            const float x = p.x + (n.x - p.x) * (level - p.y) / (n.y - p.y);
            a = std::min(a, x), b = std::max(b, x);
        }
    }
    *uMin = a;
    *uMax = b;
    return a <= b;
}

// Returns -2 when the index cannot be had.
int BuildIndex(const Lattice& l, const Frame& f, const Part& part, CellIndex* index) {
    Vec q[4];
    const float xs[4] = {float(part.left), float(part.right), float(part.right), float(part.left)};
    const float ys[4] = {float(part.bottom), float(part.bottom), float(part.top), float(part.top)};
    float vMin = kFar, vMax = -kFar;
    for (int i = 0; i < 4; ++i) {
        f.Local(xs[i], ys[i], &q[i].x, &q[i].y);
        vMin = std::min(vMin, q[i].y);
        vMax = std::max(vMax, q[i].y);
    }
    // A row's cells reach from its line to `above` over it, from `below` under it.
    const float below = l.shape == kHexagons ? -0.5f * l.h : 0.0f;
    const float above = l.shape == kHexagons ? 0.5f * l.h : l.h;
    index->firstRow = FloorInt(vMin / l.pitch) - 2;
    const int rows = FloorInt(vMax / l.pitch) + 3 - index->firstRow;
    try {
        index->firstCol.assign(rows, 0);
        index->count.assign(rows, 0);
        index->start.assign(rows, 0);
    } catch (const std::bad_alloc&) {
        return -2;
    }
    for (int r = 0; r < rows; ++r) {
        const int row = index->firstRow + r;
        index->start[r] = index->size;
        float uMin, uMax;
        if (!SpanInBand(q, row * l.pitch + below, row * l.pitch + above, &uMin, &uMax)) continue;
        const float s = l.RowShift(row);
        index->firstCol[r] = FloorInt((uMin - s) * l.invW) - 1;
        index->count[r] = FloorInt((uMax - s) * l.invW) + 2 - index->firstCol[r];
        index->size += index->count[r];
    }
    return 0;
}

// ---- Colors -----------------------------------------------------------------

struct Coloring {
    int mode;
    int shape;
    std::uint32_t seed;
    std::vector<std::uint32_t> packed;
    ColorRGB first, second;
    // Coloring 4: the cells' means, kOwn where a cell holds none.
    CellIndex index;
    std::vector<std::uint32_t> means;

    std::uint32_t Of(int col, int row) const;
};

std::uint32_t Between(const ColorRGB& a, const ColorRGB& b, const float t[3]) {
    const float from[3] = {float(a.blue), float(a.green), float(a.red)};
    const float to[3] = {float(b.blue), float(b.green), float(b.red)};
    std::uint32_t c = 0;
    for (int k = 0; k < 3; ++k)
        c |= static_cast<std::uint32_t>(from[k] + (to[k] - from[k]) * t[k] + 0.5f) << (8 * k);
    return c;
}

std::uint32_t Coloring::Of(int col, int row) const {
    switch (mode) {
        case 1: return packed[Hash(seed, col, row) % packed.size()];
        case 2: {
            const float t[3] = {Unit(Hash(seed, col, row, 1)), Unit(Hash(seed, col, row, 2)),
                                Unit(Hash(seed, col, row, 3))};
            return Between(first, second, t);
        }
        case 3: {
            const float u = Unit(Hash(seed, col, row));
            const float t[3] = {u, u, u};
            return Between(first, second, t);
        }
        case 4: {
            const std::ptrdiff_t i = index.Find(col, row);
            return i < 0 ? kOwn : means[i];
        }
        default: {
            const int odd = (shape == kHexagons ? row : col + row) & 1;
            return Packed(odd ? second : first);
        }
    }
}

// The last tile's color, kept while a row stays in one tile.
struct ColorCache {
    const Coloring& coloring;
    int col = 0, row = 0;
    std::uint32_t color = 0;
    bool valid = false;

    std::uint32_t Of(int c, int r) {
        if (!valid || c != col || r != row) {
            col = c, row = r, valid = true;
            color = coloring.Of(c, r);
        }
        return color;
    }
};

// Down triangles' spots are mirrored upright.
template <int kCells>
inline int Mirrored(const Spot& s) {
    return kCells == kTriangles && ((s.col + s.row) & 1);
}

template <class Sum>
struct CellSum {
    Sum blue = 0, green = 0, red = 0, weight = 0;

    void Add(const CellSum& o) {
        blue += o.blue, green += o.green, red += o.red, weight += o.weight;
    }
};

// The sums of the rows y0..y1-1 into one worker's table, a run of pixels in
// one cell at a time.
template <class Sum, int kCells>
void SumRows(const Picture& picture, const Part& part, const Frame& f, const Lattice& l,
             const Outline& o, const Steps* steps, const CellIndex& index, int y0, int y1,
             CellSum<Sum>* sums) {
    float cell[Outline::kMost];
    for (int y = y0; y < y1; ++y) {
        const unsigned char* coverage = CoverageAt(part, 0, y);
        const unsigned char* pixel = PixelAt(picture, 0, y);
        float u0, v0;
        RowStart(f, y, &u0, &v0);
        int x = part.left, end = part.right;
        while (x < end && coverage[x] == 0) ++x;
        while (end > x && coverage[end - 1] == 0) --end;
        while (x < end) {
            const Spot s = Find<kCells>(l, u0 + x * f.cosA, v0 - x * f.sinA);
            for (int i = 0; i < o.edges; ++i) cell[i] = o.plane[i].At(s.x, s.y) - o.inset;
            const int run = RunLength(cell, steps[Mirrored<kCells>(s)].perRise, o.edges, end - x);
            const std::ptrdiff_t i = index.Find(s.col, s.row);
            if (i >= 0) {
                CellSum<Sum> add;
                for (int k = x; k < x + run; ++k) {
                    const Sum a = coverage[k];
                    add.blue += a * pixel[3 * k];
                    add.green += a * pixel[3 * k + 1];
                    add.red += a * pixel[3 * k + 2];
                    add.weight += a;
                }
                sums[i].Add(add);
            }
            x += run;
        }
    }
}

// Coloring 4's means, in integers so that the split among threads cannot
// change them. Each worker sums into its own table while the tables together
// stay within 16 bytes per pixel of the box.
template <class Sum, int kCells>
int ComputeMeans(const Picture& picture, const Part& part, const Frame& f, const Lattice& l,
                 const Outline& o, const Steps* steps, const Options& options, Coloring* coloring) {
    const CellIndex& index = coloring->index;
    const int rows = part.top - part.bottom, rowsPerUnit = 16;
    const int units = (rows + rowsPerUnit - 1) / rowsPerUnit;
    const double boxBytes = 16.0 * (part.right - part.left) * rows;
    const double tableBytes =
        double(sizeof(CellSum<Sum>)) * std::max<std::ptrdiff_t>(index.size, 1);
    const int affordable = static_cast<int>(std::min(64.0, std::max(1.0, boxBytes / tableBytes)));
    const int threads =
        ThreadCount(std::min(ThreadCount(options.threads, units), affordable), units);
    std::vector<std::vector<CellSum<Sum>>> sums;
    try {
        sums.resize(threads);
        for (auto& table : sums) table.resize(index.size);
        coloring->means.resize(index.size);
    } catch (const std::bad_alloc&) {
        return -2;
    }
    ParallelFor(threads, units, [&](int unit, int worker) {
        const int y0 = part.bottom + unit * rowsPerUnit;
        SumRows<Sum, kCells>(picture, part, f, l, o, steps, index, y0,
                             std::min(part.top, y0 + rowsPerUnit), sums[worker].data());
    });
    for (std::ptrdiff_t i = 0; i < index.size; ++i) {
        CellSum<Sum> t = sums[0][i];
        for (int k = 1; k < threads; ++k) t.Add(sums[k][i]);
        const Sum w = t.weight, half = w / 2;
        coloring->means[i] =
            w == 0 ? kOwn
                   : static_cast<std::uint32_t>((t.blue + half) / w | (t.green + half) / w << 8 |
                                                (t.red + half) / w << 16);
    }
    return 0;
}

// ---- Painting ---------------------------------------------------------------

// The 4 x 4 samples lie within 0.375 x sqrt 2 of the pixel's centre.
const float kReach = 0.54f;

unsigned Channel(std::uint32_t c, const unsigned char* own, int i) {
    return (c & kOwn) ? own[i] : (c >> (8 * i)) & 255;
}

// `count` pixels of color c.
void Fill(std::uint32_t c, const unsigned char* own, unsigned char* out, int count) {
    if (c & kOwn) {
        std::memcpy(out, own, 3 * static_cast<std::size_t>(count));
        return;
    }
    for (int k = 0; k < count; ++k) PutPacked(out + 3 * k, c);
}

// A pixel's cell, its spot there and every plane's value at its centre.
struct Place {
    Spot spot;
    const Steps* steps;
    float value[Outline::kMost];
};

template <int kCells>
struct Painter {
    const Picture& picture;
    const Frame& frame;
    const Lattice& lattice;
    const Outline& outline;
    const Steps* steps;
    const Coloring& coloring;
    std::uint32_t seam;
    // A sample less than this beyond p's cell (by its edges' lines) lies in
    // no other tile, as every tile keeps half the seam from its cell.
    float clear;

    Place Locate(float u, float v) const {
        Place p;
        p.spot = Find<kCells>(lattice, u, v);
        p.steps = &steps[Mirrored<kCells>(p.spot)];
        for (int i = 0; i < outline.planes; ++i)
            p.value[i] = outline.plane[i].At(p.spot.x, p.spot.y);
        return p;
    }

    // The pixels from p on, up to `most`, whose centres stay in its cell.
    int CellSpan(const Place& p, int most) const {
        float cell[Outline::kMost];
        for (int i = 0; i < outline.edges; ++i) cell[i] = p.value[i] - outline.inset;
        return RunLength(cell, p.steps->perRise, outline.edges, most);
    }

    // Pixels [*from, *to) of the n from p on have every sample inside the
    // tile: within its straight edges (value + most + k step < 0 for each)
    // but for one along the row, which keeps *inside of them in throughout,
    // and clear of its arcs.
    void DeepSpan(const Place& p, int n, int* from, int* to, int* inside) const {
        const Steps& t = *p.steps;
        float lo = -1.0f, hi = static_cast<float>(n);
        *from = *to = n;
        *inside = kSamples;
        for (int i = 0; i < outline.exact; ++i) {
            const float deep = p.value[i] + t.most[i];
            if (t.step[i] > 0.0f) {
                hi = std::min(hi, -deep * t.perRise[i]);
            } else if (t.step[i] < 0.0f) {
                lo = std::max(lo, deep * t.perFall[i]);
            } else if (deep >= 0.0f) {
                if (*inside < kSamples) return;
                *inside = OnInnerSide(t, i, p.value[i]);
                // No sample may get near another tile.
                if (*inside == 0 || (i < outline.edges && deep - outline.inset >= clear)) return;
            }
        }
        for (int i = 0; i < outline.arcs && lo < hi; ++i) TrimByArc(outline.arc[i], p, &lo, &hi);
        // A hair inward: the pixels at either end are sampled anyway.
        if (lo >= hi) return;
        const int first = static_cast<int>(std::floor(lo + 1e-3f)) + 1;
        const int end = static_cast<int>(std::ceil(hi - 1e-3f));
        if (first < end) *from = first, *to = end;
    }

    // Narrows (lo, hi) to where the arc cuts off no sample: where every sample
    // is outside its sway or inside its circle (shrunk by what a sample
    // reaches). What the tile keeps clear of its edge is convex, so the arc
    // takes an end off; a hole in the middle gives the span up.
    void TrimByArc(const Arc& a, const Place& p, float* lo, float* hi) const {
        const Steps& t = *p.steps;
        // Some sample within the sway over [s0, s1].
        float s0 = -kFar, s1 = kFar;
        for (int j = a.sway; j < a.sway + 2; ++j) {
            const float within = p.value[j] + t.least[j];
            if (t.step[j] > 0.0f) {
                s1 = std::min(s1, -within * t.perRise[j]);
            } else if (t.step[j] < 0.0f) {
                s0 = std::max(s0, within * t.perFall[j]);
            } else if (within >= 0.0f) {
                return;
            }
        }
        // Every sample inside the circle over (c0, c1): |q + k d| below the radius.
        float c0 = kFar, c1 = kFar;
        const float px = p.spot.x - a.corner.x, py = p.spot.y - a.corner.y;
        const float qx = a.m[0] * px + a.m[1] * py - a.c.x, qy = a.m[2] * px + a.m[3] * py - a.c.y;
        const float dx = a.m[0] * t.dx + a.m[1] * t.dy, dy = a.m[2] * t.dx + a.m[3] * t.dy;
        const float radius = a.r - kReach * a.stretch, dd = dx * dx + dy * dy;
        const float qd = qx * dx + qy * dy,
                    disc = qd * qd - dd * (qx * qx + qy * qy - radius * radius);
        if (radius > 0.0f && disc > 0.0f) {
            c0 = (-qd - std::sqrt(disc)) / dd;
            c1 = (-qd + std::sqrt(disc)) / dd;
        }
        Cut(s0, std::min(s1, c0), lo, hi);
        Cut(std::max(s0, c1), s1, lo, hi);
    }

    // Takes [a, b] out of (lo, hi).
    static void Cut(float a, float b, float* lo, float* hi) {
        if (a > b || b <= *lo || a >= *hi) return;
        if (a <= *lo) {
            *lo = b;
        } else if (b >= *hi) {
            *hi = a;
        } else {
            *hi = *lo;
        }
    }

    // Each sample's side of the tile's edge in p's cell, negative inside;
    // arcs only where `arcs` has their bit.
    void SampleSides(const Place& p, unsigned arcs, float* d) const {
        const Steps& t = *p.steps;
        for (int k = 0; k < kSamples; ++k) d[k] = -kFar;
        for (int i = 0; i < outline.exact; ++i) {
            for (int k = 0; k < kSamples; ++k) d[k] = std::max(d[k], p.value[i] + t.toSample[i][k]);
        }
        for (int i = 0; i < outline.arcs; ++i) {
            if (!((arcs >> i) & 1)) continue;
            for (int k = 0; k < kSamples; ++k) {
                if (CutByArc(outline.arc[i], p.spot.x + t.sampleX[k], p.spot.y + t.sampleY[k]))
                    d[k] = 1.0f;
            }
        }
    }

    // Samples that may reach other tiles: those far enough out find their own
    // cell, tile and color.
    void SampleCells(const Place& p, float u, float v, ColorCache& cache, const unsigned char* own,
                     unsigned char* out) const {
        const Steps& t = *p.steps;
        float d[kSamples], beyond[kSamples];
        SampleSides(p, ~0u, d);
        for (int k = 0; k < kSamples; ++k) beyond[k] = -kFar;
        for (int i = 0; i < outline.edges; ++i) {
            for (int k = 0; k < kSamples; ++k)
                beyond[k] = std::max(beyond[k], p.value[i] - outline.inset + t.toSample[i][k]);
        }
        unsigned sum[3] = {0, 0, 0};
        for (int k = 0; k < kSamples; ++k) {
            std::uint32_t c = d[k] < 0.0f ? cache.Of(p.spot.col, p.spot.row) : seam;
            if (beyond[k] >= clear) {
                const Spot s =
                    Find<kCells>(lattice, u + steps[0].sampleX[k], v + steps[0].sampleY[k]);
                c = InsideTile(outline, s.x, s.y) ? cache.Of(s.col, s.row) : seam;
            }
            for (int i = 0; i < 3; ++i) sum[i] += Channel(c, own, i);
        }
        for (int i = 0; i < 3; ++i)
            out[i] = static_cast<unsigned char>((sum[i] + kSamples / 2) / kSamples);
    }

    // `count` pixels with `inside` of their samples in p's tile, the rest in
    // seam.
    void Blend(ColorCache& cache, const Place& p, int inside, const unsigned char* own,
               unsigned char* out, int count) const {
        if (inside == 0 || inside == kSamples) {
            return Fill(inside == 0 ? seam : cache.Of(p.spot.col, p.spot.row), own, out, count);
        }
        const std::uint32_t tile = cache.Of(p.spot.col, p.spot.row);
        const unsigned in = inside, rest = kSamples - in;
        for (int k = 0; k < 3 * count; k += 3) {
            for (int i = 0; i < 3; ++i) {
                const unsigned sum =
                    Channel(tile, own + k, i) * in + Channel(seam, own + k, i) * rest;
                out[k + i] = static_cast<unsigned char>((sum + kSamples / 2) / kSamples);
            }
        }
    }

    // How many samples lie on the inner side of line i, its value at the
    // pixel being v: those whose offsets are below -v.
    static int OnInnerSide(const Steps& t, int i, float v) {
        int inside = 0;
        while (inside < kSamples && t.sorted[i][inside] < -v) ++inside;
        return inside;
    }

    // How many of p's samples fall inside its tile; -1 when some may fall in
    // another tile.
    int Inside(const Place& p) const {
        const Steps& t = *p.steps;
        float beyond = -kFar;
        for (int i = 0; i < outline.edges; ++i) beyond = std::max(beyond, p.value[i] + t.most[i]);
        if (beyond - outline.inset >= clear) return -1;
        // The edges and arcs that part the samples; one that keeps them all
        // out makes the pixel seam.
        int parting = 0, line = 0;
        unsigned arcs = 0;
        for (int i = 0; i < outline.exact; ++i) {
            if (p.value[i] + t.least[i] >= 0.0f) return 0;
            if (p.value[i] + t.most[i] >= 0.0f) ++parting, line = i;
        }
        for (int i = 0; i < outline.arcs; ++i) {
            const Arc& a = outline.arc[i];
            const int j = a.sway;
            if (p.value[j] + t.least[j] >= 0.0f || p.value[j + 1] + t.least[j + 1] >= 0.0f)
                continue;  // every sample outside its sway
            const float gap = CircleGap(a, p.spot.x, p.spot.y);
            if (gap <= -kReach) continue;  // every sample inside its circle
            if (gap >= kReach && p.value[j] + t.most[j] < 0.0f &&
                p.value[j + 1] + t.most[j + 1] < 0.0f)
                return 0;
            arcs |= 1u << i;
            parting += 2;
        }
        if (parting == 0) return kSamples;
        if (parting == 1) return OnInnerSide(t, line, p.value[line]);
        float d[kSamples];
        SampleSides(p, arcs, d);
        int inside = 0;
        for (int k = 0; k < kSamples; ++k) inside += d[k] < 0.0f;
        return inside;
    }

    // Pixel k on from p.
    void Shade(const Place& p, int k, float u, float v, ColorCache& cache, const unsigned char* own,
               unsigned char* out) const {
        const Steps& t = *p.steps;
        Place q;
        q.spot = {p.spot.col, p.spot.row, p.spot.x + k * t.dx, p.spot.y + k * t.dy};
        q.steps = p.steps;
        for (int i = 0; i < outline.planes; ++i) q.value[i] = p.value[i] + k * t.step[i];
        const int inside = Inside(q);
        if (inside < 0) return SampleCells(q, u, v, cache, own, out);
        Blend(cache, q, inside, own, out, 1);
    }

    // Cell by cell: the pixels whose samples all lie inside the tile are
    // filled, the others shaded one by one.
    void Row(int y, int x0, int x1, unsigned char* out) const {
        float u0, v0;
        RowStart(frame, y, &u0, &v0);
        const unsigned char* own = PixelAt(picture, x0, y);
        ColorCache cache{coloring};
        for (int x = x0; x < x1;) {
            const Place p = Locate(u0 + x * frame.cosA, v0 - x * frame.sinA);
            const int n = CellSpan(p, x1 - x);
            int from = n, to = n, inside = kSamples;
            DeepSpan(p, n, &from, &to, &inside);
            for (int k = 0; k < n; ++k) {
                const int at = 3 * (x + k - x0);
                if (k == from) {
                    Blend(cache, p, inside, own + at, out + at, to - from);
                    k = to - 1;
                    continue;
                }
                const float u = u0 + (x + k) * frame.cosA, v = v0 - (x + k) * frame.sinA;
                Shade(p, k, u, v, cache, own + at, out + at);
            }
            x += n;
        }
    }
};

template <int kCells>
int Paint(const Picture& picture, const Part& part, const Options& options, const Frame& frame,
          const Lattice& lattice, const Outline& outline, std::uint32_t seam, Coloring& coloring) {
    Steps steps[2];
    MakeSteps(outline, frame, false, &steps[0]);
    MakeSteps(outline, frame, true, &steps[1]);
    if (coloring.mode == 4) {
        if (BuildIndex(lattice, frame, part, &coloring.index) != 0) return -2;
        // 32-bit sums hold 255 x 255 times the pixels of a cell up to 257 px across.
        const bool small = 2.0f * lattice.w + lattice.h + 2.0f < 257.0f;
        const int made =
            small ? ComputeMeans<std::uint32_t, kCells>(picture, part, frame, lattice, outline,
                                                        steps, options, &coloring)
                  : ComputeMeans<std::uint64_t, kCells>(picture, part, frame, lattice, outline,
                                                        steps, options, &coloring);
        if (made != 0) return -2;
    }
    // Samples lie within kReach of a centre in the cell.
    const float clear =
        outline.empty || outline.inset >= kReach ? kFar : outline.inset * outline.sharpest;
    const Painter<kCells> painter{picture, frame, lattice, outline, steps, coloring, seam, clear};
    return PaintRows(
        picture, part, options.threads,
        [&](int y, int x0, int x1, unsigned char* out) { painter.Row(y, x0, x1, out); });
}

}  // namespace

int RenderTile(const KTEffectTile& effect, const Picture& picture, const Part& part,
               const Options& options) {
    const int check = CheckTarget(picture, part);
    if (check != 0 || part.Empty()) return check;
    const int shape = effect.shape >= kSquares && effect.shape <= kHexagons ? effect.shape : 0;
    const float w = Clamped(effect.width, 1.0f, kMaxSize, 10.0f);
    const float h = Clamped(effect.height, 1.0f, kMaxSize, 10.0f);
    const float seam = Clamped(effect.seamWidth, 0.0f, 2.0f * kMaxSize, 0.0f);
    const float cut = Clamped(effect.cornerCut, 0.0f, 1.0f, 0.0f);
    const float shift = Clamped(effect.rowShift, -kMaxSize, kMaxSize, 0.0f);

    const Frame frame(part, effect.angle);
    const Lattice lattice = MakeLattice(shape, w, h, shift);
    const Outline outline = MakeOutline(shape, w, h, seam, effect.roundCorners != 0, cut);
    const std::uint32_t seamColor = effect.transparentSeam != 0 ? kOwn : Packed(effect.seamColor);
    Coloring coloring;
    coloring.mode = effect.coloring >= 0 && effect.coloring <= 4 ? effect.coloring : 0;
    coloring.shape = shape;
    coloring.seed = options.seed;
    try {
        const std::vector<ColorRGB> colors = EffectColors(effect.colors, effect.colorCount);
        for (const ColorRGB& c : colors) coloring.packed.push_back(Packed(c));
        coloring.first = colors[0];
        coloring.second = colors.size() > 1 ? colors[1] : colors[0];
    } catch (const std::bad_alloc&) {
        return -2;
    }
    switch (shape) {
        case kTriangles:
            return Paint<kTriangles>(picture, part, options, frame, lattice, outline, seamColor,
                                     coloring);
        case kHexagons:
            return Paint<kHexagons>(picture, part, options, frame, lattice, outline, seamColor,
                                    coloring);
        default:
            return Paint<kSquares>(picture, part, options, frame, lattice, outline, seamColor,
                                   coloring);
    }
}

}  // namespace vellrender
