// The program itself without a window and without a display, as a script runs it.
#include "support/temporary_folder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

using quillset::test::TemporaryFolder;

namespace {

const std::string good = "<FSData version=\"9.0\"><SceneryObject lat=\"1\" lon=\"2\" alt=\"0M\" pitch=\"0\" "
                         "bank=\"0\" heading=\"0\" altitudeIsAgl=\"TRUE\" imageComplexity=\"NORMAL\">"
                         "<Effect effectName=\"a.fx\" effectParams=\"\"/></SceneryObject></FSData>";
const std::string odd = "<FSData><SceneryObject lat=\"&quot;\\&#9;\xE2\x82\xAC\" lon=\"2\">"
                        "<Windsock/></SceneryObject></FSData>";

struct Outcome {
    int code = -1;
    QByteArray output;
    QByteArray messages;
};

} // namespace

class BatchProgramTest : public QObject {
    Q_OBJECT

    TemporaryFolder folder_;

    Outcome run(const QString& arguments) const {
        QProcess process;
        process.setWorkingDirectory(QString::fromStdString(folder_.path()));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(QLatin1String(name));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(QUILLSET_BIN "/quillset-xml"),
                      (QStringLiteral("--program-folder data ") + arguments).split(u' '));
        if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
            return {};
        return {process.exitCode(), process.readAllStandardOutput().replace("\r", ""),
                process.readAllStandardError().replace("\r", "")};
    }

private slots:
    void init() {
        folder_.write("good.xml", good);
        folder_.write("odd.xml", odd);
        folder_.write("two.xml", "<FSData version=\"9.0\">\n<SceneryObject lat=\"1\" lon=\"2\"><Effect "
                                 "effectName=\"a.fx\"/></SceneryObject>\n<SceneryObject lat=\"91\" lon=\"2\">"
                                 "<Effect effectName=\"a.fx\"/></SceneryObject></FSData>");
    }

    void exitCodes_data() {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<int>("code");
        QTest::addColumn<QByteArray>("message");
        const auto row = [](const char* name, const char* arguments, int code, const char* message) {
            QTest::newRow(name) << QString::fromLatin1(arguments) << code << QByteArray(message);
        };
        row("clean", "--check good.xml", 0, "");
        row("found", "--check odd.xml", 1, "1 finding");
        row("missing", "--check none.xml", 1, "none.xml");
        row("no operand", "--check", 2, "'--check' takes IN.xml");
        row("one too many", "--format good.xml odd.xml", 2, "'--format' takes IN.xml");
        row("format", "--format good.xml", 0, "");
        row("format nothing", "--format none.xml", 1, "none.xml");
        row("compile", "--compile good.xml good.bgl", 0, "");
        row("compile nonsense", "--compile odd.xml odd.bgl", 1, "no BGL file was made");
        row("compile error with its place", "--compile two.xml two.bgl", 1, "two.xml(3): row 2]");
        row("compile over itself", "--compile good.xml good.xml", 1, "name of the scenery file itself");
        row("compile into nowhere", "--compile good.xml no/such/good.bgl", 1, "Path not found");
    }
    void exitCodes() {
        QFETCH(QString, arguments);
        QFETCH(int, code);
        QFETCH(QByteArray, message);
        const Outcome outcome = run(arguments);
        QVERIFY2(outcome.code == code && outcome.messages.contains(message), outcome.messages.constData());
    }

    void compileReplacesTheOutputOnlyWhenItMadeOne() {
        folder_.write("out.bgl", "older");
        QCOMPARE(run(QStringLiteral("--compile odd.xml out.bgl")).code, 1);
        QCOMPARE(folder_.read("out.bgl"), std::string("older"));
        QCOMPARE(run(QStringLiteral("--compile good.xml out.bgl")).code, 0);
        QVERIFY(folder_.read("out.bgl").size() > 100);
        QVERIFY(!folder_.has("data/compile.xml"));
        QVERIFY(!folder_.has("data/config.xml"));
    }

    void streamsThatAreGoneSpoilNothing() {
#ifdef _WIN32
        QSKIP("a matter of the shells of other systems");
#else
        const auto shell = [this](const QString& arguments) {
            const QString command = QStringLiteral("cd \"$1\" && exec \"$0\" --program-folder data ");
            return QProcess::execute(QStringLiteral("sh"), {QStringLiteral("-c"), command + arguments,
                                                            QStringLiteral(QUILLSET_BIN "/quillset-xml"),
                                                            QString::fromStdString(folder_.path())});
        };
        shell(QStringLiteral("--compile good.xml out.bgl 2>&1 | :"));
        QVERIFY2(folder_.has("out.bgl"), "nobody reads its messages");
        QCOMPARE(shell(QStringLiteral("--check good.xml >&- 2>&- <&-")), 0);
        QCOMPARE(shell(QStringLiteral("--json --check good.xml >&- 2>&-")), 1);
        QCOMPARE(shell(QStringLiteral("--version >&-")), 1);
#endif
    }

    void jsonIsWellFormed() {
        for (const char* const file : {"odd.xml", "none.xml", "good.xml"}) {
            const Outcome outcome = run(QStringLiteral("--json --check ") + QLatin1String(file));
            QJsonParseError error{};
            const QJsonObject report = QJsonDocument::fromJson(outcome.output, &error).object();
            QCOMPARE(error.error, QJsonParseError::NoError);
            QVERIFY(report.value(QLatin1String("file")).toString().endsWith(QLatin1String(file)));
            QCOMPARE(report.value(QLatin1String("problem")).isNull(), file != std::string("none.xml"));
            const QJsonArray findings = report.value(QLatin1String("findings")).toArray();
            QCOMPARE(findings.size(), file == std::string("odd.xml") ? 1 : 0);
        }
        const Outcome outcome = run(QStringLiteral("--check odd.xml --json"));
        const QJsonObject finding =
            QJsonDocument::fromJson(outcome.output)[u"findings"].toArray().at(0).toObject();
        QCOMPARE(finding[u"kind"].toString(), QStringLiteral("coordinate"));
        QCOMPARE(finding[u"row"].toInt(), 1);
        QCOMPARE(finding[u"line"].toInt(), 1);
        QCOMPARE(finding[u"what"].toString(), QString::fromUtf8("lat=\"\"\\\t\xE2\x82\xAC\""));
    }
};

QTEST_GUILESS_MAIN(BatchProgramTest)
#include "batch_program_test.moc"
