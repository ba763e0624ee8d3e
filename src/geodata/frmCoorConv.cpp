#include "geodata/frmCoorConv.h"

#include "geodata/conversion_texts.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <utility>

namespace quillset {

frmCoorConv::frmCoorConv(WriteProperty write, QString separator, QWidget* parent)
    : QWidget(parent)
    , write_(std::move(write))
    , separator_(std::move(separator))
    , txt_rd_x_(addField("txt_rd_x", tr("RD X in metres, with a decimal point")))
    , txt_rd_y_(addField("txt_rd_y", tr("RD Y in metres, with a decimal point")))
    , txt_lat_(addField("txt_lat", tr("WGS84 latitude in degrees")))
    , txt_lon_(addField("txt_lon", tr("WGS84 longitude in degrees"))) {
    setObjectName(QStringLiteral("frmCoorConv"));
    setWindowTitle(QStringLiteral("Coordinate conversion"));
    arrange();
    setFocusProxy(txt_rd_x_);
    for (const QLineEdit* const field : {txt_rd_x_, txt_rd_y_})
        connect(field, &QLineEdit::textChanged, this, &frmCoorConv::convert);
}

QLineEdit* frmCoorConv::addField(const char* name, const QString& accessibleName) {
    auto* const field = new QLineEdit(this);
    field->setObjectName(QLatin1String(name));
    field->setAccessibleName(accessibleName);
    field->setToolTip(accessibleName);
    // Room for 15 digits, a sign and the separator.
    field->setMinimumWidth(field->fontMetrics().horizontalAdvance(QLatin1Char('0')) * 20);
    return field;
}

void frmCoorConv::arrange() {
    auto* const line = new QFrame(this);
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    auto* const button = new QPushButton(QStringLiteral("Write to properties"), this);
    button->setObjectName(QStringLiteral("cmd_write_properties"));
    button->setToolTip(tr("Make this the position of the selected placement"));
    connect(button, &QPushButton::clicked, this, &frmCoorConv::writeProperties);

    auto* const layout = new QGridLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("RijksDriehoeks coordinates:"), this), 0, 0, 1, 2);
    layout->addWidget(line, 1, 0, 1, 2);
    int row = 2;
    for (const auto& [text, field] : {std::pair{QStringLiteral("X"), txt_rd_x_},
                                      {QStringLiteral("Y"), txt_rd_y_},
                                      {QStringLiteral("lat"), txt_lat_},
                                      {QStringLiteral("lon"), txt_lon_}}) {
        auto* const label = new QLabel(text, this);
        label->setBuddy(field);
        layout->addWidget(label, row, 0);
        layout->addWidget(field, row++, 1);
    }
    layout->addWidget(button, row++, 1, Qt::AlignRight);
    layout->setRowStretch(row, 1);
    layout->setColumnStretch(1, 1);
}

void frmCoorConv::convert() {
    const ConversionTexts texts = conversionTexts(txt_rd_x_->text().toStdString(),
                                                  txt_rd_y_->text().toStdString(), separator_.toStdString());
    if (texts.latitude)
        txt_lat_->setText(QString::fromStdString(*texts.latitude));
    if (texts.longitude)
        txt_lon_->setText(QString::fromStdString(*texts.longitude));
}

// Deliberate: the texts, not the numbers, since the user may have changed them.
void frmCoorConv::writeProperties() {
    const auto text = [this](const QLineEdit* field) {
        return textForDocument(field->text().toStdString(), separator_.toStdString());
    };
    const std::string latitude = text(txt_lat_);
    const std::string longitude = text(txt_lon_);
    write_("lat", latitude);
    write_("lon", longitude);
}

} // namespace quillset
