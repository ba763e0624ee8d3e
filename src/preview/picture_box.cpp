#include "preview/picture_box.h"

#include "preview/picture_area.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace quillset {

PictureBox::PictureBox(QWidget* parent)
    : QWidget(parent) {
    setObjectName(QStringLiteral("picPreview"));
    setAccessibleName(QStringLiteral("Preview"));
    setFocusPolicy(Qt::TabFocus);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
}

void PictureBox::clear() {
    show(Content::nothing, {});
}

void PictureBox::showPicture(const QImage& picture) {
    show(Content::picture, picture);
}

void PictureBox::showFrame(const QImage& frame) {
    show(Content::frame, frame);
}

void PictureBox::show(Content content, const QImage& image) {
    content_ = content;
    image_ = image;
    update();
}

void PictureBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintContent(painter);
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

void PictureBox::paintContent(QPainter& painter) const {
    if (content_ == Content::nothing)
        return;
    const bool isFrame = content_ == Content::frame;
    const int side = pictureSide(width(), height());
    painter.setRenderHint(QPainter::SmoothPixmapTransform, !isFrame);
    painter.drawImage(isFrame ? rect() : QRect(0, 0, side, side), image_);
}

void PictureBox::resizeEvent(QResizeEvent*) {
    emit resized();
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton && rect().contains(event->position().toPoint()))
        emit menuWanted(event->globalPosition().toPoint());
}

// Always taken: an ignored one would reach the main window, which answers with its own menu.
void PictureBox::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard)
        emit menuWanted(mapToGlobal(rect().center()));
    event->accept();
}

} // namespace quillset
