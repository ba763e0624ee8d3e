#include "catalogue/object_icons.h"

#include <QGuiApplication>
#include <QIcon>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

#include <array>

namespace quillset {

namespace {

using Points = std::initializer_list<QPointF>;

// Shapes live on a grid of 16 by 16 units.
constexpr qreal gridSize = 16.0;

void polygon(QPainter& painter, Points points) {
    painter.drawPolygon(QPolygonF(QList<QPointF>(points)));
}

void drawFolder(QPainter& painter) {
    polygon(painter, {{1.5, 13.5}, {1.5, 3.5}, {6, 3.5}, {7.5, 5.5}, {14.5, 5.5}, {14.5, 13.5}});
}

void drawGlobe(QPainter& painter) {
    painter.drawEllipse(QPointF(8, 8), 6.5, 6.5);
    painter.drawEllipse(QPointF(8, 8), 2.8, 6.5);
    painter.drawLine(QPointF(1.5, 8), QPointF(14.5, 8));
}

void drawBook(QPainter& painter) {
    painter.drawRoundedRect(QRectF(3.5, 1.5, 10, 13), 1, 1);
    painter.drawLine(QPointF(5.5, 1.5), QPointF(5.5, 14.5));
    painter.drawLine(QPointF(8, 5), QPointF(11.5, 5));
}

void drawCube(QPainter& painter) {
    polygon(painter, {{8, 1.5}, {14, 4.5}, {14, 11.5}, {8, 14.5}, {2, 11.5}, {2, 4.5}});
    painter.drawPolyline(QPolygonF({{2, 4.5}, {8, 7.5}, {14, 4.5}}));
    painter.drawLine(QPointF(8, 7.5), QPointF(8, 14.5));
}

void drawModel(QPainter& painter) {
    drawCube(painter);
    painter.setBrush(painter.pen().color());
    painter.drawEllipse(QPointF(12, 12), 2.5, 2.5);
}

void drawSpark(QPainter& painter) {
    polygon(painter, {{8, 1}, {9.7, 6.3}, {15, 8}, {9.7, 9.7}, {8, 15}, {6.3, 9.7}, {1, 8}, {6.3, 6.3}});
}

void drawHouse(QPainter& painter) {
    polygon(painter, {{2.5, 7}, {8, 2}, {13.5, 7}, {13.5, 14.5}, {2.5, 14.5}});
    painter.drawRect(QRectF(4.8, 8.2, 2.2, 2.2));
    painter.drawRect(QRectF(9, 8.2, 2.2, 2.2));
    painter.drawLine(QPointF(2.5, 12.5), QPointF(13.5, 12.5));
}

void drawShape(QPainter& painter, NodeKind kind) {
    switch (kind) {
    case NodeKind::root:
        return drawGlobe(painter);
    case NodeKind::library:
        return drawBook(painter);
    case NodeKind::defaultObject:
    case NodeKind::userObject:
        return drawCube(painter);
    case NodeKind::localModel:
        return drawModel(painter);
    case NodeKind::effect:
        return drawSpark(painter);
    case NodeKind::building:
        return drawHouse(painter);
    default:
        return drawFolder(painter);
    }
}

class ObjectIconEngine : public QIconEngine {
public:
    explicit ObjectIconEngine(NodeKind kind)
        : kind_(kind) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const QPalette palette = QGuiApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const bool selected = mode == QIcon::Selected;
        const QColor line = palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
        QColor fill = palette.color(group, selected ? QPalette::HighlightedText : QPalette::Highlight);
        fill.setAlphaF(isPlaceable(kind_) ? 0.35F : 0.15F);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const qreal side = qMin(rect.width(), rect.height());
        painter->translate(rect.center() + QPointF(0.5, 0.5) - QPointF(side / 2, side / 2));
        painter->scale(side / gridSize, side / gridSize);
        painter->setPen(QPen(line, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(fill);
        drawShape(*painter, kind_);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, picture.rect(), mode, state);
        return picture;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new ObjectIconEngine(kind_); }

private:
    NodeKind kind_;
};

} // namespace

QIcon objectIcon(NodeKind kind) {
    return QIcon(new ObjectIconEngine(kind)); // the icon owns its engine
}

} // namespace quillset
