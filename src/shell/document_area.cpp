#include "shell/document_area.h"

#include "shell/command_icons.h"

#include <QDir>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QToolButton>
#include <QVBoxLayout>

namespace quillset {

namespace {

QLabel* heading(const QString& text, qreal scale, QWidget* parent) {
    auto* const label = new QLabel(text, parent);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    label->setFont(font);
    return label;
}

} // namespace

DocumentArea::DocumentArea(QWidget* documentWindow, QWidget* parent)
    : QStackedWidget(parent)
    , documentWindow_(documentWindow) {
    setObjectName(QStringLiteral("documentArea"));
    addWidget(makeStartPage());
    addWidget(makeDocumentPage());
}

QWidget* DocumentArea::makeStartPage() {
    auto* const page = new QWidget(this);
    page->setObjectName(QStringLiteral("startPage"));
    auto* const column = new QWidget(page);
    column->setMaximumWidth(560);
    auto* const layout = new QVBoxLayout(column);
    layout->setSpacing(10);
    layout->addStretch(1);
    layout->addWidget(heading(tr("Place scenery objects"), 1.7, column));
    auto* const hint = new QLabel(
        tr("Start a scenery file or open one. Then pick an object in the catalogue and add it to the list."),
        column);
    hint->setWordWrap(true);
    layout->addWidget(hint);
    auto* const buttons = new QHBoxLayout;
    const auto button = [&](const QString& text, CommandIcon icon, const char* name) {
        auto* const made = new QPushButton(commandIcon(icon), text, column);
        made->setObjectName(QLatin1String(name));
        buttons->addWidget(made);
        return made;
    };
    startNew_ = button(tr("New XML"), CommandIcon::newFile, "startNew");
    connect(startNew_, &QPushButton::clicked, this, &DocumentArea::newRequested);
    connect(button(tr("Open XML"), CommandIcon::openFile, "startOpen"), &QPushButton::clicked, this,
            &DocumentArea::openRequested);
    buttons->addStretch();
    layout->addLayout(buttons);
    layout->addSpacing(12);
    recentTitle_ = heading(tr("Recent files"), 1.2, column);
    layout->addWidget(recentTitle_);
    recent_ = new QListWidget(column);
    recent_->setObjectName(QStringLiteral("startRecent"));
    recent_->setAccessibleName(tr("Recent files"));
    recent_->setTextElideMode(Qt::ElideMiddle);
    recent_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(recent_, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { emit recentRequested(recent_->row(item)); });
    layout->addWidget(recent_, 2);
    layout->addStretch(1);
    auto* const row = new QHBoxLayout(page);
    row->addStretch(1);
    row->addWidget(column, 4);
    row->addStretch(1);
    return page;
}

QWidget* DocumentArea::makeDocumentPage() {
    auto* const page = new QWidget(this);
    auto* const layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* const bar = new QHBoxLayout;
    bar->setContentsMargins(10, 4, 4, 4);
    caption_ = new QLabel(page);
    caption_->setObjectName(QStringLiteral("documentCaption"));
    caption_->setTextFormat(Qt::PlainText);
    caption_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    caption_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* const close = new QToolButton(page);
    close->setObjectName(QStringLiteral("documentClose"));
    close->setIcon(commandIcon(CommandIcon::close));
    close->setToolTip(tr("Close the scenery file (Ctrl+W)"));
    close->setAccessibleName(tr("Close the scenery file"));
    close->setAutoRaise(true);
    connect(close, &QToolButton::clicked, this, &DocumentArea::closeRequested);
    bar->addWidget(caption_, 1);
    bar->addWidget(close);
    layout->addLayout(bar);
    layout->addWidget(documentWindow_, 1);
    return page;
}

void DocumentArea::showDocument(const QString& caption) {
    caption_->setText(caption);
    caption_->setToolTip(caption);
    // From the start page the keyboard goes on to the list, not to the button that closes the document.
    const QWidget* const focused = window()->focusWidget();
    const bool fromStartPage = !showsDocument() && (!focused || isAncestorOf(focused));
    setCurrentIndex(1);
    if (fromStartPage)
        documentWindow_->setFocus();
}

void DocumentArea::hideDocument() {
    setCurrentIndex(0);
}

void DocumentArea::focusInEvent(QFocusEvent* event) {
    QWidget* const target = showsDocument() ? documentWindow_ : startNew_;
    target->setFocus(event->reason());
}

void DocumentArea::setRecentFiles(const QStringList& paths) {
    recent_->clear();
    for (const QString& path : paths) {
        auto* const item = new QListWidgetItem(QDir::toNativeSeparators(path), recent_);
        item->setToolTip(path);
    }
    recent_->setVisible(!paths.isEmpty());
    recentTitle_->setVisible(!paths.isEmpty());
}

} // namespace quillset
