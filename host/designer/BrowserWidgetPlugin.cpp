#include "host/designer/BrowserWidgetPlugin.h"

#include "host/designer/PropertyGroups.h"

#include <QDesignerFormEditorInterface>
#include <QExtensionManager>
#include <QIcon>

#include <ZelkaBrowser/T4ZelkaBrowser.h>

QString BrowserWidgetPlugin::name() const
{
    return QStringLiteral("T4ZelkaBrowser");
}

QString BrowserWidgetPlugin::group() const
{
    return QStringLiteral("Zelka");
}

QString BrowserWidgetPlugin::toolTip() const
{
    return QStringLiteral("Connection browser");
}

QString BrowserWidgetPlugin::whatsThis() const
{
    return QStringLiteral("Shows a database of connections and nodes and gives the target string of the one "
                          "that the operator picks.");
}

QString BrowserWidgetPlugin::includeFile() const
{
    return QStringLiteral("ZelkaBrowser/T4ZelkaBrowser.h");
}

QIcon BrowserWidgetPlugin::icon() const
{
    return QIcon(QStringLiteral(":/zelka/pictures/zelka.svg"));
}

QString BrowserWidgetPlugin::domXml() const
{
    return QStringLiteral(R"(
<ui language="c++">
 <widget class="T4ZelkaBrowser" name="browser">
  <property name="geometry"><rect><x>0</x><y>0</y><width>480</width><height>560</height></rect></property>
 </widget>
 <customwidgets>
  <customwidget>
   <class>T4ZelkaBrowser</class>
   <extends>QWidget</extends>
   <propertyspecifications>
    <tooltip name="RefreshVisible">The Refresh command is shown.</tooltip>
    <tooltip name="RefreshTimer">The trees follow what other programs change, by themselves.</tooltip>
    <tooltip name="RefreshInterval">Milliseconds between two refreshes by timer.</tooltip>
    <tooltip name="ManageVisible">The Manage command is shown.</tooltip>
    <tooltip name="BrowserTabIndex">The page that opens first: 0 Database, 1 Direct.</tooltip>
    <tooltip name="JournalDayLimit">Days beyond which the Journal is trimmed; 0: never.</tooltip>
    <tooltip name="JournalDaysToKeep">Days that a trimmed Journal keeps.</tooltip>
    <tooltip name="JournalRecordLimit">Records beyond which the Journal is trimmed; 0: never.</tooltip>
    <tooltip name="JournalRecordsToKeep">Records that a trimmed Journal keeps.</tooltip>
    <tooltip name="Sobriquet">Name of the selected node or connection.</tooltip>
    <tooltip name="CommandLine">Command line of the selected node's manager.</tooltip>
    <tooltip name="NodeType">Device name of the selected node.</tooltip>
   </propertyspecifications>
  </customwidget>
 </customwidgets>
</ui>
)");
}

QWidget* BrowserWidgetPlugin::createWidget(QWidget* parent)
{
    auto* browser = new T4ZelkaBrowser(parent);
    browser->SetUserMode(!m_inEditor);
    return browser;
}

void BrowserWidgetPlugin::initialize(QDesignerFormEditorInterface* core)
{
    if (m_inEditor || !core)
        return;
    m_inEditor = true;
    QExtensionManager* extensions = core->extensionManager();
    extensions->registerExtensions(new PropertyGroups(extensions), Q_TYPEID(QDesignerPropertySheetExtension));
}
