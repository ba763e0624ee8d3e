#include "shell/theme.h"

#include <QApplication>
#include <QPalette>
#include <QSettings>
#include <QStyle>
#include <QStyleFactory>

namespace quillset {

namespace {

struct Colours {
    const char* window;
    const char* base;
    const char* alternate;
    const char* text;
    const char* faint;
    const char* button;
    const char* border;
    const char* highlight;
    const char* highlightedText;
    const char* menuHighlight; // pale, since the icons keep their colours on it
    const char* link;
};

constexpr Colours lightColours{"#f4f5f7", "#ffffff", "#f7f9fb", "#1f2933", "#8a94a0", "#ffffff",
                               "#c9d0d8", "#2b6cb0", "#ffffff", "#d6e4f3", "#2b6cb0"};
constexpr Colours darkColours{"#22272e", "#1b1f24", "#20252b", "#dfe5ec", "#76818d", "#2d333b",
                              "#454d57", "#3b7dc4", "#ffffff", "#364b63", "#6cb0f5"};

QPalette paletteOf(const Colours& colours) {
    const auto colour = [](const char* name) { return QColor(QLatin1String(name)); };
    QPalette palette(colour(colours.button), colour(colours.window));
    palette.setColor(QPalette::Base, colour(colours.base));
    palette.setColor(QPalette::AlternateBase, colour(colours.alternate));
    palette.setColor(QPalette::ToolTipBase, colour(colours.base));
    palette.setColor(QPalette::Mid, colour(colours.border));
    palette.setColor(QPalette::Highlight, colour(colours.highlight));
    palette.setColor(QPalette::HighlightedText, colour(colours.highlightedText));
    palette.setColor(QPalette::Link, colour(colours.link));
    palette.setColor(QPalette::PlaceholderText, colour(colours.faint));
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, colour(colours.text));
        palette.setColor(QPalette::Disabled, role, colour(colours.faint));
    }
    return palette;
}

QPalette menuPaletteOf(const Colours& colours) {
    QPalette palette = paletteOf(colours);
    palette.setColor(QPalette::Highlight, QColor(QLatin1String(colours.menuHighlight)));
    palette.setColor(QPalette::HighlightedText, QColor(QLatin1String(colours.text)));
    return palette;
}

bool systemIsDark() {
#ifdef Q_OS_WIN
    const QSettings settings(
        QStringLiteral(
            "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize"),
        QSettings::NativeFormat);
    return settings.value(QStringLiteral("AppsUseLightTheme"), 1).toInt() == 0;
#else
    // The platform theme's palette as it was before ours: asked once, since setting a palette hides it.
    static const bool dark = [] {
        const QPalette palette = QApplication::palette();
        return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
    }();
    return dark;
#endif
}

} // namespace

void applyAppearance(Appearance appearance) {
    const bool dark = systemIsDark();
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const bool wantDark = appearance == Appearance::dark || (appearance == Appearance::system && dark);
    const Colours& colours = wantDark ? darkColours : lightColours;
    QApplication::setPalette(paletteOf(colours));
    for (const char* const widget : {"QMenu", "QMenuBar"})
        QApplication::setPalette(menuPaletteOf(colours), widget);
}

Appearance appearanceFromText(const QString& text) {
    if (text == QLatin1String("light"))
        return Appearance::light;
    return text == QLatin1String("dark") ? Appearance::dark : Appearance::system;
}

QString textOf(Appearance appearance) {
    switch (appearance) {
    case Appearance::light:
        return QStringLiteral("light");
    case Appearance::dark:
        return QStringLiteral("dark");
    case Appearance::system:
        break;
    }
    return QStringLiteral("system");
}

} // namespace quillset
