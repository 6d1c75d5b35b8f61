#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

/// Puts the control into Qt Designer's widget box.
///
/// In the form editor the control never starts, so that it touches no database. A program that loads forms at
/// run time, which uses the same plugin without an editor, gets a control that works.
class BrowserWidgetPlugin : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetInterface")
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    [[nodiscard]] QString name() const override;
    [[nodiscard]] QString group() const override;
    [[nodiscard]] QString toolTip() const override;
    [[nodiscard]] QString whatsThis() const override;
    [[nodiscard]] QString includeFile() const override;
    [[nodiscard]] QIcon icon() const override;
    [[nodiscard]] bool isContainer() const override { return false; }
    [[nodiscard]] QString domXml() const override;
    QWidget* createWidget(QWidget* parent) override;
    [[nodiscard]] bool isInitialized() const override { return m_inEditor; }
    void initialize(QDesignerFormEditorInterface* core) override;

private:
    bool m_inEditor = false;
};
