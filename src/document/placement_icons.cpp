#include "document/placement_icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace quillset {

namespace {

/// Drawings on a square of 16 by 16 units.
constexpr qreal unitsOfSquare = 16;

QPainterPath box() {
    QPainterPath path;
    path.addPolygon(QPolygonF({{8, 1.5}, {14, 4.5}, {14, 11.5}, {8, 14.5}, {2, 11.5}, {2, 4.5}, {8, 1.5}}));
    path.addPolygon(QPolygonF({{2, 4.5}, {8, 7.5}, {14, 4.5}}));
    path.moveTo(8, 7.5);
    path.lineTo(8, 14.5);
    return path;
}

QPainterPath spark() {
    QPainterPath path;
    path.addPolygon(QPolygonF(
        {{8, 1}, {9.8, 6.2}, {15, 8}, {9.8, 9.8}, {8, 15}, {6.2, 9.8}, {1, 8}, {6.2, 6.2}, {8, 1}}));
    return path;
}

QPainterPath house() {
    QPainterPath path;
    path.addPolygon(QPolygonF({{1.5, 7.5}, {8, 2}, {14.5, 7.5}}));
    path.addPolygon(QPolygonF({{3.5, 7}, {3.5, 14}, {12.5, 14}, {12.5, 7}}));
    path.addRect(6.5, 9.5, 3, 4.5);
    return path;
}

QPainterPath ring() {
    QPainterPath path;
    path.addEllipse(QPointF(8, 8), 4.5, 4.5);
    return path;
}

QPainterPath drawing(PlacementKind kind) {
    switch (kind) {
    case PlacementKind::libraryObject:
        return box();
    case PlacementKind::effect:
        return spark();
    case PlacementKind::genericBuilding:
        return house();
    case PlacementKind::other:
        break;
    }
    return ring();
}

class DrawingEngine : public QIconEngine {
public:
    explicit DrawingEngine(PlacementKind kind)
        : kind_(kind) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const QPalette palette = QGuiApplication::palette();
        const QPalette::ColorRole role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::Text;
        const QPalette::ColorGroup group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / unitsOfSquare, rect.height() / unitsOfSquare);
        painter->setPen(QPen(palette.color(group, role), 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPath(drawing(kind_));
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new DrawingEngine(kind_); }

private:
    PlacementKind kind_;
};

} // namespace

QIcon placementIcon(PlacementKind kind) {
    return QIcon(new DrawingEngine(kind));
}

} // namespace quillset
