#include "shell/command_icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

#include <algorithm>
#include <array>

namespace quillset {

namespace {

// Strokes on a 24 x 24 grid. A stroke is a list of points ("M x y", "L x y", "C cx cy r" for a circle, "Z"
// closes), those after "|" are drawn in the accent colour.
struct Drawing {
    CommandIcon icon;
    const char* strokes;
};

constexpr std::array drawings{
    Drawing{CommandIcon::newFile,
            "M 6 3 L 14 3 L 18 7 L 18 21 L 6 21 Z M 14 3 L 14 7 L 18 7 | M 12 11 L 12 17 M 9 14 L 15 14"},
    Drawing{CommandIcon::openFile,
            "M 3 19 L 3 5 L 9 5 L 11 8 L 19 8 L 19 11 M 3 19 L 6 11 L 22 11 L 19 19 Z"},
    Drawing{CommandIcon::save,
            "M 4 4 L 17 4 L 20 7 L 20 20 L 4 20 Z M 8 4 L 8 9 L 15 9 L 15 4 | M 7 20 L 7 13 L 17 13 L 17 20"},
    Drawing{CommandIcon::saveAs, "M 4 4 L 16 4 L 19 7 L 19 11 M 11 20 L 4 20 L 4 4 M 8 4 L 8 9 L 14 9 L 14 4 "
                                 "| M 13 21 L 14 18 L 20 12 L 22 14 L 16 20 Z"},
    Drawing{CommandIcon::compile, "M 4 7 L 12 3 L 20 7 L 20 16 L 12 20 L 4 16 Z M 4 7 L 12 11 L 20 7 M 12 11 "
                                  "L 12 20 | M 14 22 L 22 22 M 19 19 L 22 22 L 19 24"},
    Drawing{CommandIcon::exportFile, "M 4 13 L 4 20 L 20 20 L 20 13 | M 12 15 L 12 4 M 8 8 L 12 4 L 16 8"},
    Drawing{CommandIcon::importFile, "M 4 13 L 4 20 L 20 20 L 20 13 | M 12 4 L 12 15 M 8 11 L 12 15 L 16 11"},
    Drawing{CommandIcon::close, "M 6 3 L 14 3 L 18 7 L 18 21 L 6 21 Z | M 9 11 L 15 17 M 15 11 L 9 17"},
    Drawing{CommandIcon::quit, "M 13 4 L 4 4 L 4 20 L 13 20 | M 9 12 L 21 12 M 17 8 L 21 12 L 17 16"},
    Drawing{CommandIcon::undo, "M 5 9 L 15 9 L 19 12 L 19 16 L 15 19 L 9 19 | M 9 4 L 4 9 L 9 14"},
    Drawing{CommandIcon::convert, "C 12 12 9 M 3 12 L 21 12 M 12 3 L 8 8 L 8 16 L 12 21 L 16 16 L 16 8 Z"},
    Drawing{CommandIcon::addBefore,
            "M 4 13 L 20 13 M 4 17 L 20 17 M 4 21 L 20 21 | M 12 2 L 12 10 M 8 6 L 16 6"},
    Drawing{CommandIcon::addEnd, "M 4 3 L 20 3 M 4 7 L 20 7 M 4 11 L 20 11 | M 12 14 L 12 22 M 8 18 L 16 18"},
    Drawing{CommandIcon::update, "M 4 4 L 20 4 M 4 20 L 20 20 | M 6 12 L 18 12 M 14 8 L 18 12 L 14 16"},
    Drawing{CommandIcon::library,
            "M 4 4 L 8 4 L 8 20 L 4 20 Z M 8 4 L 12 4 L 12 20 L 8 20 M 14 5 L 18 4 L 21 19 L 17 20 Z"},
    Drawing{CommandIcon::model,
            "M 4 8 L 12 4 L 20 8 L 20 16 L 12 20 L 4 16 Z M 4 8 L 12 12 L 20 8 M 12 12 L 12 20"},
    Drawing{
        CommandIcon::removeModel,
        "M 3 8 L 11 4 L 19 8 L 19 12 M 11 20 L 3 16 L 3 8 L 11 12 L 19 8 M 11 12 L 11 20 | M 14 18 L 22 18"},
    Drawing{CommandIcon::folder,
            "M 3 19 L 3 5 L 9 5 L 11 8 L 21 8 L 21 19 Z | M 12 11 L 12 16 M 9 13 L 15 13"},
    Drawing{CommandIcon::rescan, "M 20 12 L 19 16 L 15 19 L 10 19 L 6 16 M 4 12 L 5 8 L 9 5 L 14 5 L 18 8 | "
                                 "M 18 3 L 18 8 L 13 8 M 6 21 L 6 16 L 11 16"},
    Drawing{CommandIcon::tree, "M 5 3 L 5 19 L 11 19 M 5 11 L 11 11 M 5 5 L 11 5 | M 13 3 L 20 3 L 20 7 L 13 "
                               "7 Z M 13 9 L 20 9 L 20 13 L 13 13 Z M 13 17 L 20 17 L 20 21 L 13 21 Z"},
    Drawing{CommandIcon::properties,
            "M 4 4 L 20 4 L 20 20 L 4 20 Z M 11 4 L 11 20 M 4 9 L 20 9 M 4 14 L 20 14"},
    Drawing{CommandIcon::preview, "M 2 12 L 7 7 L 12 5 L 17 7 L 22 12 L 17 17 L 12 19 L 7 17 Z | C 12 12 3"},
    Drawing{CommandIcon::remove, "M 4 6 L 20 6 M 9 6 L 9 3 L 15 3 L 15 6 M 6 6 L 7 21 L 17 21 L 18 6 | M 10 "
                                 "10 L 10 17 M 14 10 L 14 17"},
    Drawing{CommandIcon::moveUp, "| M 12 20 L 12 4 M 6 10 L 12 4 L 18 10"},
    Drawing{CommandIcon::moveDown, "| M 12 4 L 12 20 M 6 14 L 12 20 L 18 14"},
    Drawing{CommandIcon::help, "C 12 12 9 | M 9 9 L 10 7 L 14 7 L 15 9 L 12 12 L 12 14 M 12 17 L 12 18"},
    Drawing{CommandIcon::copy, "M 9 8 L 20 8 L 20 21 L 9 21 Z | M 6 16 L 4 16 L 4 3 L 15 3 L 15 5"},
    Drawing{CommandIcon::about, "C 12 12 9 | M 12 11 L 12 17 M 12 7 L 12 8"},
};

void addStrokes(const QStringList& words, QPainterPath& path) {
    const auto number = [&](qsizetype i) { return words.value(i).toDouble(); };
    for (qsizetype i = 0; i < words.size();) {
        const QString& word = words[i];
        if (word == QLatin1String("M")) {
            path.moveTo(number(i + 1), number(i + 2));
            i += 3;
        } else if (word == QLatin1String("L")) {
            path.lineTo(number(i + 1), number(i + 2));
            i += 3;
        } else if (word == QLatin1String("C")) {
            path.addEllipse(QPointF(number(i + 1), number(i + 2)), number(i + 3), number(i + 3));
            i += 4;
        } else {
            path.closeSubpath();
            ++i;
        }
    }
}

struct Paths {
    QPainterPath plain;
    QPainterPath accent;
};

Paths pathsOf(CommandIcon icon) {
    Paths paths;
    for (const Drawing& drawing : drawings) {
        if (drawing.icon != icon)
            continue;
        const QStringList halves = QString::fromLatin1(drawing.strokes).split(u'|');
        addStrokes(halves.value(0).split(u' ', Qt::SkipEmptyParts), paths.plain);
        addStrokes(halves.value(1).split(u' ', Qt::SkipEmptyParts), paths.accent);
    }
    return paths;
}

class StrokeIconEngine : public QIconEngine {
public:
    explicit StrokeIconEngine(CommandIcon icon)
        : icon_(icon) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const QPalette palette = QGuiApplication::palette();
        const bool disabled = mode == QIcon::Disabled;
        const auto group = disabled ? QPalette::Disabled : QPalette::Active;
        const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText;
        const QColor plain = palette.color(group, role);
        const QColor accent = disabled || mode == QIcon::Selected ? plain : palette.color(QPalette::Link);
        const Paths paths = pathsOf(icon_);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const qreal side = std::min(rect.width(), rect.height());
        painter->translate(rect.center() + QPointF(0.5, 0.5) - QPointF(side / 2, side / 2));
        painter->scale(side / 24, side / 24);
        painter->setPen(QPen(plain, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPath(paths.plain);
        painter->setPen(QPen(accent, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPath(paths.accent);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new StrokeIconEngine(icon_); }

private:
    CommandIcon icon_;
};

} // namespace

QIcon commandIcon(CommandIcon icon) {
    return icon == CommandIcon::none ? QIcon() : QIcon(new StrokeIconEngine(icon));
}

QIcon programIcon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/icons/quillset-xml-%1.png").arg(size));
    return icon;
}

} // namespace quillset
