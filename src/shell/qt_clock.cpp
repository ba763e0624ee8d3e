#include "shell/qt_clock.h"

#include <QLocale>
#include <QTime>

namespace quillset {

std::string QtClock::timeText() const {
    // The long format of most locales ends in the time zone, which does not belong on the activity line.
    QString format = QLocale().timeFormat(QLocale::LongFormat);
    format.remove(u't');
    return QLocale().toString(QTime::currentTime(), format.trimmed()).trimmed().toStdString();
}

} // namespace quillset
