#include "platform/controls/WindowPlaces.h"

#include <QDialog>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMainWindow>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

namespace {

/// A dialog with a size grip, a splitter and a grid.
class Window : public QDialog
{
public:
    explicit Window(const QString& name)
    {
        setObjectName(name);
        setSizeGripEnabled(true);
        auto* const layout = new QVBoxLayout(this);
        Splitter->setObjectName(QStringLiteral("splHost"));
        Splitter->addWidget(new QWidget);
        Splitter->addWidget(new QWidget);
        layout->addWidget(Splitter);
        Grid->setObjectName(QStringLiteral("grdNodes"));
        Grid->setColumnWidth(0, 60);
        Grid->horizontalHeader()->setStretchLastSection(true);
        layout->addWidget(Grid);
        resize(400, 300);
    }

    QSplitter* Splitter = new QSplitter;
    QTableWidget* Grid = new QTableWidget(2, 2);
};

} // namespace

/// Windows come back where they were.
class TestWindowPlaces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        m_settings =
            std::make_unique<QSettings>(m_folder->filePath(QStringLiteral("kept.ini")), QSettings::IniFormat);
        m_places = std::make_unique<WindowPlaces>(*m_settings);
    }
    void cleanup()
    {
        m_places.reset();
        m_settings.reset();
    }

    void Dialog_ShownAgain_HasItsSizeAndPlace()
    {
        const QRect place(40, 30, 512, 345);
        ShowOnce(QStringLiteral("frmScan"), [&](Window& window) { window.setGeometry(place); });
        Window again(QStringLiteral("frmScan"));
        again.show();
        QCOMPARE(again.geometry(), place);
    }

    void Dialog_OfAnotherName_KeepsItsOwn()
    {
        ShowOnce(QStringLiteral("frmScan"), [](Window& window) { window.resize(512, 345); });
        Window other(QStringLiteral("frmWpProp"));
        other.show();
        QCOMPARE(other.size(), QSize(400, 300));
    }

    void Dialog_WithoutSizeGrip_IsLeftAlone()
    {
        ShowOnce(QStringLiteral("frmAbout"), [](Window& window) {
            window.setSizeGripEnabled(false);
            window.resize(512, 345);
        });
        QVERIFY(m_settings->allKeys().isEmpty());
    }

    void Place_OffTheScreen_ComesBackOntoIt()
    {
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        ShowOnce(QStringLiteral("frmScan"),
                 [&](Window& window) { window.move(screen.right() + 5000, screen.bottom() + 5000); });
        Window again(QStringLiteral("frmScan"));
        again.show();
        QVERIFY(screen.contains(again.geometry()));
    }

    void Size_LargerThanTheScreen_FitsOntoIt()
    {
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        ShowOnce(QStringLiteral("frmScan"), [&](Window& window) { window.resize(screen.size() * 2); });
        Window again(QStringLiteral("frmScan"));
        again.show();
        QVERIFY(again.width() <= screen.width() && again.height() <= screen.height());
    }

    void Size_SmallerThanTheContents_GrowsToThem()
    {
        ShowOnce(QStringLiteral("frmScan"), [](Window& window) { window.resize(320, 250); });
        Window again(QStringLiteral("frmScan"));
        again.Grid->setMinimumWidth(500);
        again.show();
        QVERIFY(again.width() >= 500);
    }

    void Splitter_Moved_ComesBack()
    {
        QList<int> sizes;
        ShowOnce(QStringLiteral("frmScan"), [&](Window& window) {
            window.Splitter->setSizes({300, 60});
            sizes = window.Splitter->sizes();
        });
        Window again(QStringLiteral("frmScan"));
        again.show();
        QCOMPARE(again.Splitter->sizes(), sizes);
    }

    void Columns_Widened_ComeBack()
    {
        ShowOnce(QStringLiteral("frmScan"), [](Window& window) { window.Grid->setColumnWidth(0, 123); });
        Window again(QStringLiteral("frmScan"));
        again.show();
        QCOMPARE(again.Grid->columnWidth(0), 123);
    }

    void Columns_LargerFont_AreTheWindowsOwn()
    {
        ShowOnce(QStringLiteral("frmScan"), [](Window& window) { window.Grid->setColumnWidth(0, 123); });
        Window again(QStringLiteral("frmScan"));
        QFont font = again.Grid->font();
        font.setPointSize(font.pointSize() * 2);
        again.Grid->setFont(font);
        again.Grid->setColumnWidth(0, 70);
        again.show();
        QCOMPARE(again.Grid->columnWidth(0), 70);
    }

    void MainWindow_Closed_ComesBack()
    {
        {
            QMainWindow window;
            window.setObjectName(QStringLiteral("Host"));
            window.resize(555, 444);
            window.show();
            window.close();
        }
        QMainWindow again;
        again.setObjectName(QStringLiteral("Host"));
        again.show();
        QCOMPARE(again.size(), QSize(555, 444));
    }

    void Settings_Damaged_LeaveTheWindowAsItIs()
    {
        m_settings->setValue(QStringLiteral("Windows/frmScan/Geometry"), QByteArray("nonsense"));
        m_settings->setValue(QStringLiteral("Windows/frmScan/splHost"), 17);
        m_settings->setValue(QStringLiteral("Windows/frmScan/grdNodes"), QStringLiteral("x"));
        Window window(QStringLiteral("frmScan"));
        window.show();
        QCOMPARE(window.size(), QSize(400, 300));
        QCOMPARE(window.Grid->columnWidth(0), 60);
    }

private:
    static void ShowOnce(const QString& name, const std::function<void(Window&)>& work)
    {
        Window window(name);
        window.show();
        work(window);
        QCoreApplication::processEvents();
        window.reject();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<WindowPlaces> m_places;
};

QTEST_MAIN(TestWindowPlaces)
#include "TestWindowPlaces.moc"
