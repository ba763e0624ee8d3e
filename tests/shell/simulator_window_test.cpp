// The running editor and its simulator: what the window shows while it waits, and recordings.
#include "editor_run.h"
#include "simlink/simulator_recording.h"
#include "support/in_process_simulator.h"

#include <QLabel>

using namespace quillset;
using namespace quillset::test;

namespace {

/// Remembers what the window has painted last, which is what the user sees while the program stands still.
class PaintWatch : public QObject {
public:
    PaintWatch() { qApp->installEventFilter(this); }

    QString activityLine;
    bool mainWindow = false;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            if (watched->objectName() == QLatin1String("panel1"))
                activityLine = static_cast<QLabel*>(watched)->text();
            mainWindow = mainWindow || watched->objectName() == QLatin1String("MDIForm1");
        }
        return false;
    }
};

struct Seen {
    QString activityLine;
    bool mainWindow;
    bool busyCursor;

    bool operator==(const Seen&) const = default;
};

QString panelText(EditorRun& run, const char* name) {
    return static_cast<QLabel*>(run.widget(name))->text();
}

QString linkState(EditorRun& run) {
    return panelText(run, "panel3");
}

/// Places an object at the aircraft and turns it as the aircraft stands; gives the document.
std::string useSimulator(EditorRun& run, InProcessSimulator* simulator) {
    const auto fly = [simulator](std::int64_t latitude, std::uint32_t heading) {
        if (simulator != nullptr)
            simulator->placeAircraft(latitude, -(std::int64_t{1} << 60), heading);
    };
    fly(21478594576384000, 0xC0000000);
    run.editor->session().catalogue().setObjTreeItem("AA02");
    run.action("mAddNewEnd")->trigger();
    fly(-10739297288192000, 0x20000000);
    run.action("mAddNewEnd")->trigger();
    QWidget* const sheet = run.widget("ObjProp");
    auto* const view = static_cast<QAbstractItemView*>(sheet);
    for (int row = 0; row < view->model()->rowCount(); ++row) {
        if (view->model()->index(row, 0).data().toString() != QLatin1String("heading"))
            continue;
        view->setCurrentIndex(view->model()->index(row, 0));
        fly(0, 0x10000000);
        QTest::keyClick(sheet, Qt::Key_R);
    }
    return run.editor->session().document().serialise();
}

} // namespace

class SimulatorWindowTest : public QObject {
    Q_OBJECT
private slots:
    void init() {
        folder_.emplace();
        writeProgramFiles(*folder_);
    }

    void theWindowSaysWhatItWaitsForAndRecovers();
    void aReplayGivesTheSamePlacements();

private:
    std::optional<TemporaryFolder> folder_;
};

void SimulatorWindowTest::theWindowSaysWhatItWaitsForAndRecovers() {
    PaintWatch watch;
    std::vector<Seen> seen;
    auto owned = std::make_unique<InProcessSimulator>();
    InProcessSimulator& simulator = *owned;
    simulator.unanswered = {0, 0};
    const auto look = [&] {
        return Seen{watch.activityLine, watch.mainWindow, QApplication::overrideCursor() != nullptr};
    };
    std::vector<Seen> silences; // what is on the screen half a second into a silent attempt
    simulator.onSend = [&] { seen.push_back(look()); };
    simulator.onSilence = [&] { silences.push_back(look()); };
    EditorRun run(*folder_, document(*folder_, "a.xml", 1), std::move(owned));
    const QString waits = QString::fromLatin1(waitingText);
    QTRY_COMPARE(linkState(run), QStringLiteral("FSUIPC OK"));
    QCOMPARE(seen.size(), std::size_t(3));
    QVERIFY2(seen[0].mainWindow && !seen[0].busyCursor, "the first picture comes before the first try");
    QVERIFY(seen[0].activityLine.endsWith(QLatin1String("a.xml loaded")));
    QVERIFY(seen[1] == (Seen{waits, true, true}) && seen[2] == seen[1]);
    QVERIFY2(silences == (std::vector{seen[1], seen[1]}),
             "the sign comes in the middle of the first attempt");
    QVERIFY(QApplication::overrideCursor() == nullptr);
    QCOMPARE(panelText(run, "panel1"), seen[0].activityLine);

    // A question of the user's: one that was silent a moment ago is expected to be silent again.
    const QString before = seen[0].activityLine;
    seen.clear();
    simulator.unanswered.assign(11, 0);
    run.editor->session().catalogue().setObjTreeItem("AA02");
    run.action("mAddNewEnd")->trigger();
    QCOMPARE(seen.size(), std::size_t(13)); // latitude in eleven attempts, longitude, heading
    for (std::size_t i = 0; i < 12; ++i)
        QVERIFY2(seen[i] == (Seen{waits, true, true}), QByteArray::number(qulonglong(i)).constData());
    QVERIFY(seen[12] == (Seen{before, true, true}));
    QVERIFY(QApplication::overrideCursor() == nullptr);
    QVERIFY2(panelText(run, "panel1").endsWith(QLatin1String("] Tower added")), "the window is itself again");
    QCOMPARE(run.editor->session().document().placementCount(), std::size_t(2));
}

void SimulatorWindowTest::aReplayGivesTheSamePlacements() {
    const std::string path = folder_->file("link.txt");
    const std::string scenery = document(*folder_, "a.xml", 1);
    std::string recorded;
    {
        auto owned = std::make_unique<InProcessSimulator>();
        InProcessSimulator* const simulator = owned.get();
        const QtClock clock;
        EditorRun run(*folder_, scenery, recordedServices(std::move(owned), path, clock));
        QTRY_COMPARE(linkState(run), QStringLiteral("FSUIPC OK"));
        recorded = useSimulator(run, simulator);
    }
    QVERIFY(recorded.find("lat=\"45\"") != std::string::npos);
    QVERIFY(recorded.find("lat=\"-22.5\"") != std::string::npos);
    QVERIFY(recorded.find("heading=\"22.5\"") != std::string::npos);
    Replay replay = replayedServices(folder_->read("link.txt"));
    QVERIFY2(replay.services, replay.problem.c_str());
    EditorRun again(*folder_, scenery, std::move(replay.services));
    QTRY_COMPARE(linkState(again), QStringLiteral("FSUIPC OK"));
    QCOMPARE(useSimulator(again, nullptr), recorded);
}

QTEST_MAIN(SimulatorWindowTest)
#include "simulator_window_test.moc"
