#pragma once

#include "dialogs/DialogState.h"
#include "model/ConOrderClass.h"
#include "tests/scan/ScanFixture.h"
#include "tests/scan/WholeConnection.h"
#include "tests/support/ModalForms.h"

#include <QListWidget>

/// The scan dialog with found nodes, over trees in which their saves are to be seen: "West" at 3, "Hub 17" at
/// 17, one without an identification at 20.
class SaveScanFixture : public ScanFixture, public ModalForms
{
public:
    SaveScanFixture()
    {
        ::Dialogs() = DialogState();
        Model().ConOrderObject = std::make_unique<ConOrderClass>();
        Model().ConOrderObject->LoadConTypesInOrder(*Model().Database, QStringLiteral("0,1,2,9,14,6,7"),
                                                    QStringLiteral("0,1,2,9,16,6,7"));
        Nodes = {{3, QStringLiteral("West")}, {17, QStringLiteral("Hub 17")}, {20, QString()}};
    }
    ~SaveScanFixture()
    {
        Form.reset();
        Model().ConOrderObject.reset();
        ::Dialogs() = DialogState();
    }
    SaveScanFixture(const SaveScanFixture&) = delete;
    SaveScanFixture& operator=(const SaveScanFixture&) = delete;

    /// Forms that were worked in, by their titles.
    QStringList Forms;

    /// A finished scan of Alpha; the operator has typed the timing of the saves.
    void ScanNodes()
    {
        ShowScan();
        TakeTrees();
        Start(3, 20);
        WalkToTheEnd();
        Box("txtTimingRetries").setText(QStringLiteral(" 5 "));
        Box("txtTimingTimeout").setText(QStringLiteral(" 700 "));
        Direct().NodeName = QStringLiteral("Before");
        Direct().NodeType = QStringLiteral("NET4");
        Direct().CommandLine = QStringLiteral("1|-port 9");
        Direct().TargetString = QStringLiteral("kept");
        ForgetAll();
    }
    /// Presses a command, also one that is disabled, and waits for its forms.
    void Press(const char* command) const
    {
        Button(command).setEnabled(true);
        Click(command);
    }
    /// Works in the next form and writes its title down.
    void InForm(const std::function<void(QDialog& form)>& work)
    {
        InNextDialog([this, work](QDialog& form) {
            Forms << form.windowTitle();
            work(form);
        });
    }
    /// The same, where the form's own buttons are all that is used.
    void PressInForm(std::initializer_list<const char*> buttons)
    {
        InForm([buttons = std::vector<const char*>(buttons)](QDialog& form) {
            for (const char* button : buttons)
                ClickIn(form, button);
        });
    }
    /// What another application did to the connection of the scan.
    void Spoil(const QString& how)
    {
        if (how == u"changed")
            ChangeElsewhere(QStringLiteral("Alpha"));
        else if (how == u"removed")
            RemoveElsewhere(QStringLiteral("Alpha"));
        else if (how == u"direct")
            NewDirect().ConName = Direct().ConName;
    }
    [[nodiscard]] static QStringList Whole() { return WholeConnection(Direct()); }
    [[nodiscard]] QString TargetOf(const QString& node) const
    {
        for (const auto& record : Component.Store.Now.nodes) {
            if (record.name == node)
                return record.target;
        }
        return QStringLiteral("none");
    }
    /// What the trees lack; they may still show what another application has removed.
    [[nodiscard]] QStringList MissingEntries() const
    {
        QStringList missing = FreshTreeContents();
        for (const QString& shown : TreeContents())
            missing.removeOne(shown);
        return missing;
    }
    /// Nothing is left of a command.
    [[nodiscard]] bool IsAtRest() const
    {
        return !Model().ScanDirectObject && Component.Store.Levels() == 0 && LevelsUnderBoxes == 0 &&
               !Con().SaveFromScan;
    }

    static QString OnlyDirect()
    {
        return QStringLiteral("Connection used in scanning must be saved before the found nodes can be "
                              "saved.");
    }
    static QString ChangedElsewhere()
    {
        return QStringLiteral("Another application has changed the scanned connection in the database. It "
                              "must be saved before the found nodes can be saved.");
    }
    static RecordedBox Question(const QString& text)
    {
        return {text, BoxFlags::OkCancel, ApplicationTitle()};
    }
};
