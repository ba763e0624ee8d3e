#pragma once

#include <QWidget>

#include <functional>
#include <string>

class QLabel;
class QLineEdit;

namespace quillset {

/// The conversion window: RD coordinates are converted while they are typed, and the result, or what the user
/// made of it, goes into the selected placement.
class frmCoorConv : public QWidget {
    Q_OBJECT
public:
    /// Writes a property ("lat", "lon") of the selected placement; does nothing where there is none.
    using WriteProperty = std::function<void(const std::string& name, const std::string& text)>;

    /// `separator` is the decimal separator that results are shown with.
    frmCoorConv(WriteProperty write, QString separator, QWidget* parent = nullptr);

private:
    QLineEdit* addField(const char* name, const QString& accessibleName);
    void arrange();
    void convert();
    void writeProperties();

    WriteProperty write_;
    QString separator_;
    QLineEdit* txt_rd_x_;
    QLineEdit* txt_rd_y_;
    QLineEdit* txt_lat_;
    QLineEdit* txt_lon_;
};

} // namespace quillset
