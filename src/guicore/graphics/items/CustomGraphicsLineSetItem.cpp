#include "CustomGraphicsLineSetItem.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

bool fuzzyEqual(double a, double b)
{
    // Relative tolerance, with an absolute floor so that values at or near 0 still match.
    return std::abs(a - b) <= 1e-12 * std::max({1.0, std::abs(a), std::abs(b)});
}

bool fuzzyEqual(const QPointF& a, const QPointF& b)
{
    return fuzzyEqual(a.x(), b.x()) && fuzzyEqual(a.y(), b.y());
}

double cross(const QPointF& a, const QPointF& b)
{
    return a.x() * b.y() - a.y() * b.x();
}

double dot(const QPointF& a, const QPointF& b)
{
    return a.x() * b.x() + a.y() * b.y();
}

/// The segments as an undirected graph over fuzzily distinct end points.
struct SegmentGraph
{
    QList<QPointF> points;
    QList<std::pair<int, int>> edges;
    QList<QList<int>> edgesAt; // per point, the indices of its edges

    explicit SegmentGraph(const QList<QLineF>& lines)
    {
        for (const QLineF& line : lines) {
            const int a = pointIndex(line.p1());
            const int b = pointIndex(line.p2());
            if (a == b || hasEdge(a, b))
                continue;
            edgesAt[a].append(edges.size());
            edgesAt[b].append(edges.size());
            edges.append({a, b});
        }
    }

    int pointIndex(const QPointF& p)
    {
        for (int i = 0; i < points.size(); ++i) {
            if (fuzzyEqual(points[i], p))
                return i;
        }
        points.append(p);
        edgesAt.append(QList<int>());
        return points.size() - 1;
    }

    bool hasEdge(int a, int b) const
    {
        for (int e : edgesAt[a]) {
            if (other(e, a) == b)
                return true;
        }
        return false;
    }

    int other(int edge, int point) const
    {
        return edges[edge].first == point ? edges[edge].second : edges[edge].first;
    }
};

} // namespace

CustomGraphicsLineSetItem::CustomGraphicsLineSetItem(const QString& name, QGraphicsItem* parent)
    : CustomGraphicsItem(name, parent)
{
    setUseStroker(true);
}

void CustomGraphicsLineSetItem::setLineSet(const QList<QLineF>& lines)
{
    lineSet = lines;
    closed = false;
    QPainterPath path;
    if (fillColor.isValid() && !lines.isEmpty()) {
        path = createPathWithClosedPolygons(lines);
        if (!path.isEmpty())
            closed = true;
    }
    if (path.isEmpty() && !lines.isEmpty()) {
        for (const QLineF& line : lines) {
            path.moveTo(line.p1());
            path.lineTo(line.p2());
        }
    }
    setUseStroker(!closed);
    setPainterPath(path);
}

void CustomGraphicsLineSetItem::setClosedLineSet(const QList<QLineF>& lines)
{
    lineSet = lines;
    closed = true;
    QPainterPath path;
    if (!lines.isEmpty()) {
        const QList<QPointF> points = getPointsForClosedPolygonFromLines(lines);
        if (!points.isEmpty()) {
            path.moveTo(points.first());
            for (qsizetype i = 1; i < points.size(); ++i)
                path.lineTo(points[i]);
        }
    }
    setUseStroker(false);
    setPainterPath(path);
}

void CustomGraphicsLineSetItem::clearLineSet()
{
    if (lineSet.isEmpty())
        return;
    lineSet.clear();
    setLineSet(lineSet);
}

QPainterPath CustomGraphicsLineSetItem::createPathWithClosedPolygons(const QList<QLineF>& lines)
{
    SegmentGraph graph(lines);
    const int pointCount = graph.points.size();

    // Open chains and dangling branches close nothing: peel points of degree one until only
    // points on loops remain.
    QList<bool> edgeUsed(graph.edges.size(), false);
    QList<int> degree(pointCount);
    for (int p = 0; p < pointCount; ++p)
        degree[p] = graph.edgesAt[p].size();
    QList<int> leaves;
    for (int p = 0; p < pointCount; ++p) {
        if (degree[p] == 1)
            leaves.append(p);
    }
    while (!leaves.isEmpty()) {
        const int p = leaves.takeLast();
        for (int e : graph.edgesAt[p]) {
            if (edgeUsed[e])
                continue;
            edgeUsed[e] = true;
            --degree[p];
            const int q = graph.other(e, p);
            if (--degree[q] == 1)
                leaves.append(q);
        }
    }

    // Walk the remaining edges; whenever the walk comes back to a point it passed, the stretch
    // since then is a simple loop. A walk that runs out of edges (a chord between two loops)
    // leaves its stretch undrawn.
    QPainterPath path;
    for (int startEdge = 0; startEdge < graph.edges.size(); ++startEdge) {
        if (edgeUsed[startEdge])
            continue;
        QList<int> walk {graph.edges[startEdge].first};
        int current = graph.edges[startEdge].first;
        int edge = startEdge;
        while (edge >= 0) {
            edgeUsed[edge] = true;
            current = graph.other(edge, current);
            const qsizetype seen = walk.indexOf(current);
            if (seen >= 0) {
                path.moveTo(graph.points[walk[seen]]);
                for (qsizetype i = seen + 1; i < walk.size(); ++i)
                    path.lineTo(graph.points[walk[i]]);
                path.closeSubpath();
                walk.resize(seen + 1);
            } else {
                walk.append(current);
            }
            edge = -1;
            for (int e : graph.edgesAt[current]) {
                if (!edgeUsed[e]) {
                    edge = e;
                    break;
                }
            }
        }
    }
    return path;
}

QList<QPointF> CustomGraphicsLineSetItem::getPointsForClosedPolygonFromLines(
    const QList<QLineF>& lines)
{
    SegmentGraph graph(lines);
    if (graph.points.size() < 3)
        return graph.points;

    QList<QPointF> outline {graph.points.first()};
    QList<bool> edgeUsed(graph.edges.size(), false);
    int current = 0;
    QPointF heading;
    // The first segment gives the direction of travel.
    int edge = graph.edgesAt[0].isEmpty() ? -1 : graph.edgesAt[0].first();
    while (edge >= 0) {
        edgeUsed[edge] = true;
        const int next = graph.other(edge, current);
        heading = graph.points[next] - graph.points[current];
        current = next;
        if (current == 0)
            break;
        outline.append(graph.points[current]);

        // Of the unused segments leaving this point, take the rightmost turn: a candidate
        // replaces the best so far when it lies clockwise of it (as seen from the heading).
        edge = -1;
        QPointF best;
        for (int e : graph.edgesAt[current]) {
            if (edgeUsed[e])
                continue;
            const QPointF direction = graph.points[graph.other(e, current)] - graph.points[current];
            if (edge < 0) {
                edge = e;
                best = direction;
                continue;
            }
            const double turnBest = std::atan2(cross(heading, best), dot(heading, best));
            const double turnCandidate
                = std::atan2(cross(heading, direction), dot(heading, direction));
            // In screen coordinates (y down) a positive cross product is a clockwise turn.
            if (turnCandidate > turnBest) {
                edge = e;
                best = direction;
            }
        }
    }
    return outline;
}

void CustomGraphicsLineSetItem::paintScaled(
    QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->setPen(pen());
    if (fillColor.isValid() && closed) {
        fillPath(painter, fillColor);
    } else {
        painter->setBrush(Qt::NoBrush);
        paintPath(painter);
    }
}
