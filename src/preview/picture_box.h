#pragma once

#include <QImage>
#include <QWidget>

namespace quillset {

/// The drawing area of the preview: empty, a picture stretched into the top left square, or a frame of the
/// turning building that fills it.
class PictureBox : public QWidget {
    Q_OBJECT
public:
    explicit PictureBox(QWidget* parent);

    void clear();
    void showPicture(const QImage& picture);
    void showFrame(const QImage& frame);

signals:
    /// The right button was released, or the menu key pressed; `place` is on the screen.
    void menuWanted(const QPoint& place);
    void resized();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    enum class Content { nothing, picture, frame };

    void show(Content content, const QImage& image);
    void paintContent(QPainter& painter) const;

    Content content_ = Content::nothing;
    QImage image_;
};

} // namespace quillset
