// The scan dialog over addresses where nobody answers: how long an input event waits meanwhile; the pace of
// the walk beside the interval that its timer is set to; what the dialog does while it is idle.

#include "bench/BenchSupport.h"
#include "browser/T4ZelkaBrowser.h"
#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxutil/HvxUtilityComponent.h"
#include "components/syncconn/SyncConnectionComponent.h"
#include "database/Gateway.h"
#include "model/ItemList.h"
#include "model/ModelState.h"
#include "platform/Components.h"
#include "platform/MsgBox.h"
#include "platform/controls/IntervalTimer.h"
#include "scan/frmScan.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDeadlineTimer>
#include <QInputDevice>
#include <QKeyEvent>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>

#include <atomic>
#include <thread>

namespace {

qint64 NowUs()
{
    return QDeadlineTimer::current(Qt::PreciseTimer).deadlineNSecs() / 1000;
}

void LetEventsRun(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Box texts of a run without an operator.
class NoBoxes : public BoxPresenter
{
public:
    BoxAnswer ShowMsgBox(const QString& text, int, const QString&) override
    {
        Texts << text;
        return BoxAnswer::Ok;
    }
    bool ShowInputBox(const QString&, const QString&, QString&) override { return false; }

    QStringList Texts;
};

/// A gateway of its own process with one bus and nobody on it.
class SilentGateway
{
public:
    explicit SilentGateway(const QString& bus)
    {
        QFile file(m_folder.filePath(QStringLiteral("silent.json")));
        const QString text = QStringLiteral("{\"buses\": [{\"number\": %1, \"nodes\": []}]}").arg(bus);
        if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
            qFatal("The network file cannot be written.");
        file.close();
        m_process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/zelka-netsim"),
                        {QStringLiteral("serve"), file.fileName(), QStringLiteral("--listen"),
                         QStringLiteral("127.0.0.1:0")});
        if (!m_process.waitForReadyRead())
            qFatal("zelka-netsim does not start.");
        const QByteArray line = m_process.readLine().trimmed();
        qputenv("ZELKA_GATEWAY", line.mid(line.lastIndexOf(' ') + 1));
    }
    ~SilentGateway()
    {
        m_process.terminate();
        m_process.waitForFinished();
    }
    SilentGateway(const SilentGateway&) = delete;
    SilentGateway& operator=(const SilentGateway&) = delete;

private:
    QTemporaryDir m_folder;
    QProcess m_process;
};

/// Lets go of a key of a window again and again and notes how long each event waits until it is handled.
class Typist : public QObject
{
public:
    explicit Typist(QWidget& window) : m_window(window)
    {
        window.installEventFilter(this);
        // Made here, or the other thread would make it.
        (void)QInputDevice::primaryKeyboard();
        m_thread = std::thread([this] {
            constexpr auto pause = std::chrono::milliseconds(5);
            while (!m_stopped) {
                QCoreApplication::postEvent(&m_window, new Key(NowUs()));
                std::this_thread::sleep_for(pause);
            }
        });
    }
    ~Typist() override
    {
        m_stopped = true;
        m_thread.join();
        QCoreApplication::removePostedEvents(&m_window, QEvent::KeyRelease);
    }
    Typist(const Typist&) = delete;
    Typist& operator=(const Typist&) = delete;

    [[nodiscard]] double LongestMs() const { return double(m_longestUs) / 1000; }
    [[nodiscard]] int Keys() const { return m_keys; }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (const auto* key = dynamic_cast<Key*>(event)) {
            m_longestUs = qMax(m_longestUs, NowUs() - key->SentUs);
            ++m_keys;
        }
        return false;
    }

private:
    class Key : public QKeyEvent
    {
    public:
        explicit Key(qint64 sentUs)
            : QKeyEvent(QEvent::KeyRelease, Qt::Key_F35, Qt::NoModifier), SentUs(sentUs)
        {}
        qint64 SentUs;
    };

    QWidget& m_window;
    std::thread m_thread;
    std::atomic<bool> m_stopped = false;
    qint64 m_longestUs = 0;
    int m_keys = 0;
};

/// Answers everything at once, and notes when it was asked who is there.
class InstantConnection : public SyncConnection
{
public:
    explicit InstantConnection(std::vector<qint64>& asked) : m_asked(asked) {}
    qint32 Open(const QString&) override { return 0; }
    void Send(const QString&, const QString& request, QString& reply) override
    {
        if (request == u"40")
            m_asked.push_back(NowUs());
        reply = QStringLiteral("4E");
    }
    void Close() override {}
    void GetLastError(qint32&, qint32&, qint32&, QString&) override {}

private:
    std::vector<qint64>& m_asked;
};

/// The dialog on a connection to bus 254.
struct ScanWindow
{
    ScanWindow()
    {
        Form.show();
        LetEventsRun(100);
    }
    void Scan(int begin, int end)
    {
        Box("txtAddrBegin").setText(QString::number(begin));
        Box("txtAddrEnd").setText(QString::number(end));
        Button().click();
        // The first step is part of the click; the caption is "S&tart" again when the walk is over.
        while (Button().text() != QStringLiteral("S&tart"))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    [[nodiscard]] QLineEdit& Box(const char* name) const
    {
        return *Form.findChild<QLineEdit*>(QLatin1String(name));
    }
    [[nodiscard]] QPushButton& Button() const
    {
        return *Form.findChild<QPushButton*>(QStringLiteral("cmdStartStop"));
    }

    frmScan Form{*Model().DirectObject};
};

void MeasureSilence(const NoBoxes& boxes)
{
    QString bus;
    (void)Model().DirectObject->GetWpParamByName(QStringLiteral("BUS NUMBER"), bus);
    const SilentGateway gateway(bus);
    RegisterSyncConnections();
    ScanWindow window;
    window.Box("txtTimingRetries").setText(QStringLiteral("0"));
    window.Box("txtTimingTimeout").setText(QStringLiteral("2000"));
    const Typist typist(window.Form);
    window.Scan(0, 4);
    if (typist.Keys() == 0) {
        Bench::PrintNote(QStringLiteral("the scan did not run: %1").arg(boxes.Texts.join(u' ')));
        std::exit(1);
    }
    Bench::PrintFigure(QStringLiteral("longest wait of %1 input events during a scan over 5 silent addresses")
                           .arg(typist.Keys()),
                       typist.LongestMs(), QStringLiteral("ms"), 50);
}

void MeasurePace()
{
    std::vector<qint64> asked;
    RegisterSyncConnection(T4SyncConnId, [&] { return std::make_unique<InstantConnection>(asked); });
    ScanWindow window;
    window.Scan(0, 49);
    const auto* timer = window.Form.findChild<IntervalTimer*>(QStringLiteral("tmrScanNodes"));
    const double told = 2 * timer->Interval();
    const double mean = double(asked.back() - asked.front()) / 1000 / double(asked.size() - 1);
    Bench::PrintFigure(
        QStringLiteral("mean step of %1, beside the %2 ms it is set to").arg(asked.size()).arg(told),
        mean / told * 100, QStringLiteral("%"), 102);
    const double work = Bench::ProcessorSeconds([&] { window.Scan(50, 74); });
    Bench::PrintFigure(QStringLiteral("processor time of a step that finds a node, beside its interval"),
                       work / 25 * 1000 / told * 100, QStringLiteral("%"), 2);
}

void MeasureIdle()
{
    ScanWindow window;
    window.Button().setFocus();
    LetEventsRun(300);
    int turns = 0;
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &window.Form,
                     [&] { ++turns; });
    LetEventsRun(10'000);
    // The end of the wait itself is one.
    Bench::PrintFigure(QStringLiteral("times that the idle dialog wakes up in 10 s"), turns - 1,
                       QStringLiteral("times"), 3);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setCursorFlashTime(0);
    NoBoxes boxes;
    SetBoxPresenter(&boxes);
    RegisterHvxDatabase();
    RegisterHvxUtility();
    SetDataSource(application.arguments().value(1) + QStringLiteral("/thousands.mdb"));
    T4ZelkaBrowser browser;
    browser.UserControl_InitProperties();
    QString list;
    PairTable connections;
    int count = 0;
    if (!Gateway().QueryParentsDb(list) || !PairListToTable(list, connections, count) ||
        !Model().DirectObject->SetParentConData(connections.front().first, true))
        return 1;

    MeasureSilence(boxes);
    MeasurePace();
    MeasureIdle();
    SetBoxPresenter(nullptr);
    return Bench::ExitCode();
}
