#include "shell/help_commands.h"

#include "shell/diagnostics.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QScreen>
#include <QStringList>
#include <QSysInfo>
#include <QUrl>

namespace quillset {

namespace {

constexpr const char* form = "MDIForm1";

QString glText(QOpenGLFunctions& functions, GLenum name) {
    const GLubyte* const text = functions.glGetString(name);
    return text == nullptr ? QString() : QString::fromLatin1(reinterpret_cast<const char*>(text));
}

std::string openGlText() {
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    if (!surface.isValid() || !context.create() || !context.makeCurrent(&surface))
        return "none";
    QOpenGLFunctions& functions = *context.functions();
    const QString text =
        QStringLiteral("%1, %2").arg(glText(functions, GL_RENDERER), glText(functions, GL_VERSION));
    context.doneCurrent();
    return text.toStdString();
}

std::string screensText() {
    QStringList screens;
    for (const QScreen* const screen : QGuiApplication::screens())
        screens << QStringLiteral("%1 x %2 at %3 %")
                       .arg(screen->size().width())
                       .arg(screen->size().height())
                       .arg(qRound(screen->devicePixelRatio() * 100));
    return screens.join(QStringLiteral("; ")).toStdString();
}

PlatformFacts platformFacts(const std::string& linkState) {
    const QString system = QStringLiteral("%1 (%2), %3")
                               .arg(QSysInfo::prettyProductName(), QSysInfo::currentCpuArchitecture(),
                                    QGuiApplication::platformName());
    return {qVersion(), system.toStdString(), screensText(), openGlText(), linkState};
}

} // namespace

HelpCommands::HelpCommands(Session& session, std::function<std::string()> linkState)
    : session_(session)
    , linkState_(std::move(linkState)) {}

void HelpCommands::openManual() {
    session_.errors().trapped("mManual_Click", form, [this] {
        const std::optional<std::string> manual = session_.files().manual();
        if (!manual) {
            session_.dialogs().tell("The manual was not found. It belongs into the folder\r\n" +
                                        session_.files().manualPlaces().front(),
                                    errorTitle, MessageIcon::critical);
            return;
        }
        if (!QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(*manual))))
            session_.dialogs().tell("No program was found that shows the manual. It is the file\r\n" +
                                    *manual);
    });
}

void HelpCommands::copyDiagnostics() {
    session_.errors().trapped("mCopyDiagnostics_Click", form, [this] {
        const std::string text = diagnosticsText(session_, platformFacts(linkState_()));
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
        session_.activity().show("diagnostics copied to the clipboard");
    });
}

void HelpCommands::about() {
    session_.errors().trapped("mAbout_Click", form, [this] {
        session_.dialogs().tell("Quillset XML " QUILLSET_VERSION
                                "\r\nPlaces scenery objects for Flight Simulator 2004.\r\n\r\n"
                                "Free software under the MIT licence, without any warranty.\r\n"
                                "Made with Qt " +
                                std::string(qVersion()) + ", pugixml and shapelib.");
    });
}

} // namespace quillset
