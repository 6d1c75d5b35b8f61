#include <QApplication>
#include <QBuffer>
#include <QDesignerFormEditorInterface>
#include <QDesignerPropertySheetExtension>
#include <QDir>
#include <QExtensionFactory>
#include <QExtensionManager>
#include <QFormBuilder>
#include <QIcon>
#include <QMessageBox>
#include <QPluginLoader>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <ZelkaBrowser/T4ZelkaBrowser.h>
#include <ZelkaBrowser/Zelka.h>
#include <memory>

namespace {

/// Stands for the editor's own sheet: all properties of an object, in one group.
class PlainSheet : public QObject, public QDesignerPropertySheetExtension
{
    Q_OBJECT
    Q_INTERFACES(QDesignerPropertySheetExtension)

public:
    PlainSheet(QObject* object, QObject* parent) : QObject(parent), m_object(object) {}

    int count() const override { return Meta().propertyCount(); }
    int indexOf(const QString& name) const override { return Meta().indexOfProperty(qPrintable(name)); }
    QString propertyName(int index) const override { return QLatin1String(Meta().property(index).name()); }
    QString propertyGroup(int index) const override { return m_groups.value(index); }
    void setPropertyGroup(int index, const QString& group) override { m_groups[index] = group; }
    bool hasReset(int) const override { return false; }
    bool reset(int) override { return false; }
    bool isVisible(int) const override { return true; }
    void setVisible(int, bool) override {}
    bool isAttribute(int) const override { return false; }
    void setAttribute(int, bool) override {}
    QVariant property(int index) const override { return Meta().property(index).read(m_object); }
    void setProperty(int index, const QVariant& value) override
    {
        Meta().property(index).write(m_object, value);
    }
    bool isChanged(int) const override { return false; }
    void setChanged(int, bool) override {}
    bool isEnabled(int) const override { return true; }

private:
    const QMetaObject& Meta() const { return *m_object->metaObject(); }

    QObject* m_object;
    QMap<int, QString> m_groups;
};

class PlainSheets : public QExtensionFactory
{
    Q_OBJECT

public:
    using QExtensionFactory::QExtensionFactory;

protected:
    QObject* createExtension(QObject* object, const QString&, QObject* parent) const override
    {
        return new PlainSheet(object, parent);
    }
};

/// An editor that has nothing but sheets.
class Editor : public QDesignerFormEditorInterface
{
    Q_OBJECT

public:
    Editor()
    {
        auto* extensions = new QExtensionManager(this);
        extensions->registerExtensions(new PlainSheets(extensions),
                                       Q_TYPEID(QDesignerPropertySheetExtension));
        setExtensionManager(extensions);
    }
};

const QByteArray Form = R"(<ui version="4.0"><class>Host</class>
<widget class="QWidget" name="Host">
 <widget class="T4ZelkaBrowser" name="browser" native="true">
  <property name="RefreshInterval" stdset="0"><number>5000</number></property>
  <property name="RefreshVisible" stdset="0"><bool>false</bool></property>
  <property name="BrowserTabIndex" stdset="0"><number>0</number></property>
 </widget>
</widget>
<customwidgets><customwidget><class>T4ZelkaBrowser</class><extends>QWidget</extends>
 <header>ZelkaBrowser/T4ZelkaBrowser.h</header></customwidget></customwidgets></ui>)";

} // namespace

/// The control in Qt Designer.
class TestDesignerPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void Plugin_Loaded_TellsWhatItOffers();
    void Initialize_Twice_RegistersOnce();
    void Show_InEditor_NeverStarts();
    void Show_OutsideEditor_Starts();
    void Properties_InEditor_ReadAndWrite();
    void Properties_InEditor_AreGrouped_data();
    void Properties_InEditor_AreGrouped();
    void Properties_OfOtherWidgets_StayAsTheyAre();
    void Form_BuiltAtRunTime_CarriesItsProperties();

private:
    [[nodiscard]] std::unique_ptr<QWidget> Create()
    {
        return std::unique_ptr<QWidget>(m_plugin->createWidget(nullptr));
    }
    [[nodiscard]] QDesignerPropertySheetExtension& Sheet(QObject& object) const
    {
        return *qt_extension<QDesignerPropertySheetExtension*>(m_editor->extensionManager(), &object);
    }
    /// Shows a widget; True: it began to open a database. The source is one that cannot be opened, so that
    /// the start tells so in a box.
    [[nodiscard]] static bool StartsWhenShown(QWidget& widget);

    QTemporaryDir m_home;
    std::unique_ptr<QPluginLoader> m_loader;
    std::unique_ptr<Editor> m_editor;
    QDesignerCustomWidgetInterface* m_plugin = nullptr;
};

void TestDesignerPlugin::init()
{
    Zelka::ChooseDatabase(m_home.filePath("missing.mdb"));
    m_editor = std::make_unique<Editor>();
    m_loader = std::make_unique<QPluginLoader>(DESIGNER_PLUGIN);
    m_plugin = qobject_cast<QDesignerCustomWidgetInterface*>(m_loader->instance());
    QVERIFY2(m_plugin, qUtf8Printable(m_loader->errorString()));
}

void TestDesignerPlugin::cleanup()
{
    m_editor.reset();
    (void)m_loader->unload();
    Zelka::ChooseDatabase(QString());
}

bool TestDesignerPlugin::StartsWhenShown(QWidget& widget)
{
    bool started = false;
    QTimer closing;
    connect(&closing, &QTimer::timeout, &widget, [&started] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            started = true;
            box->close();
        }
    });
    closing.start(0);
    widget.show();
    // Long enough for what is queued behind the showing.
    for (int pass = 0; pass < 100; ++pass)
        QApplication::processEvents();
    return started;
}

void TestDesignerPlugin::Plugin_Loaded_TellsWhatItOffers()
{
    QCOMPARE(m_plugin->name(), "T4ZelkaBrowser");
    QCOMPARE(m_plugin->group(), "Zelka");
    QCOMPARE(m_plugin->toolTip(), "Connection browser");
    QVERIFY(!m_plugin->whatsThis().isEmpty());
    QCOMPARE(m_plugin->includeFile(), "ZelkaBrowser/T4ZelkaBrowser.h");
    QVERIFY(!m_plugin->icon().pixmap(22, 22).isNull());
    QVERIFY(!m_plugin->isContainer());
}

void TestDesignerPlugin::Initialize_Twice_RegistersOnce()
{
    QVERIFY(!m_plugin->isInitialized());

    m_plugin->initialize(m_editor.get());
    m_plugin->initialize(m_editor.get());

    QVERIFY(m_plugin->isInitialized());
    const std::unique_ptr<QWidget> browser = Create();
    QCOMPARE(Sheet(*browser).propertyGroup(Sheet(*browser).indexOf("RefreshTimer")), "Refresh");
}

void TestDesignerPlugin::Show_InEditor_NeverStarts()
{
    m_plugin->initialize(m_editor.get());
    const std::unique_ptr<QWidget> browser = Create();

    QVERIFY(!StartsWhenShown(*browser));

    QVERIFY(!qobject_cast<T4ZelkaBrowser*>(browser.get())->UserMode());
    QVERIFY(QDir(m_home.path()).isEmpty());
}

void TestDesignerPlugin::Show_OutsideEditor_Starts()
{
    const std::unique_ptr<QWidget> browser = Create();

    QVERIFY(StartsWhenShown(*browser));

    QVERIFY(qobject_cast<T4ZelkaBrowser*>(browser.get())->UserMode());
}

void TestDesignerPlugin::Properties_InEditor_ReadAndWrite()
{
    m_plugin->initialize(m_editor.get());
    const std::unique_ptr<QWidget> browser = Create();
    QDesignerPropertySheetExtension& sheet = Sheet(*browser);

    sheet.setProperty(sheet.indexOf("RefreshInterval"), 1234);

    QCOMPARE(sheet.property(sheet.indexOf("RefreshInterval")).toInt(), 1234);
    QCOMPARE(sheet.property(sheet.indexOf("JournalRecordLimit")).toInt(), 12000);
}

void TestDesignerPlugin::Properties_InEditor_AreGrouped_data()
{
    QTest::addColumn<QString>("group");
    for (const char* name : {"RefreshVisible", "RefreshTimer", "RefreshInterval"})
        QTest::newRow(name) << "Refresh";
    for (const char* name :
         {"JournalDayLimit", "JournalDaysToKeep", "JournalRecordLimit", "JournalRecordsToKeep"})
        QTest::newRow(name) << "Journal";
    for (const char* name : {"Sobriquet", "CommandLine", "NodeType"})
        QTest::newRow(name) << "Selection";
    for (const char* name : {"ManageVisible", "BrowserTabIndex"})
        QTest::newRow(name) << "View";
    QTest::newRow("geometry") << "";
}

void TestDesignerPlugin::Properties_InEditor_AreGrouped()
{
    m_plugin->initialize(m_editor.get());
    const std::unique_ptr<QWidget> browser = Create();
    const QDesignerPropertySheetExtension& sheet = Sheet(*browser);
    const int index = sheet.indexOf(QTest::currentDataTag());
    QVERIFY(index >= 0);

    QTEST(sheet.propertyGroup(index), "group");
}

void TestDesignerPlugin::Properties_OfOtherWidgets_StayAsTheyAre()
{
    m_plugin->initialize(m_editor.get());
    QWidget other;
    const QDesignerPropertySheetExtension& sheet = Sheet(other);

    for (int index = 0; index < sheet.count(); ++index)
        QCOMPARE(sheet.propertyGroup(index), QString());
}

void TestDesignerPlugin::Form_BuiltAtRunTime_CarriesItsProperties()
{
    QByteArray form = Form;
    QBuffer file(&form);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QFormBuilder builder;
    builder.setPluginPath({DESIGNER_FOLDER});

    const std::unique_ptr<QWidget> host(builder.load(&file));

    QVERIFY2(host, qUtf8Printable(builder.errorString()));
    const auto* browser = host->findChild<T4ZelkaBrowser*>("browser");
    QVERIFY(browser);
    QVERIFY(browser->UserMode());
    QCOMPARE(browser->RefreshInterval(), 5000);
    QVERIFY(!browser->RefreshVisible());
    QCOMPARE(browser->BrowserTabIndex(), 0);
}

QTEST_MAIN(TestDesignerPlugin)
#include "TestDesignerPlugin.moc"
