#pragma once

#include <QDialog>
#include <QString>

#include <memory>

class ConData;
class ConDataBackup;

namespace Ui {
class frmDirectProp;
}

/// Composes the connection of the Direct tab: Apply takes it into use without storing it, Save stores it as
/// well.
///
/// Show it modally. Accepted, and SelectPressed of `direct` set, means that it was taken: applied into
/// `newDirect`, or saved, when `newDirect` has no name. Anything else, the end of the form included, leaves
/// `direct` as it was before. A save works on the connection tree that ConObject names. Thread: the
/// control's.
class frmDirectProp : public QDialog
{
    Q_OBJECT

public:
    /// `direct` is the connection in use, ConDbID 0 where it is not as the database has it; `newDirect`
    /// receives the applied one. Both outlive the form.
    frmDirectProp(ConData& direct, ConData& newDirect, QWidget* parent = nullptr);
    ~frmDirectProp() override;

public Q_SLOTS:
    void reject() override;

private:
    void Connect();
    void Form_Load();
    void cmdApply_Click();
    void cmdSave_Click();
    void cmdHelp_Click();

    [[nodiscard]] bool HasChanges();
    void UpdateApplyButtons();
    /// Short name and id of the type that is selected go into the connection.
    void TakeType();
    void ApplyAs(const QString& name);

    std::unique_ptr<Ui::frmDirectProp> m_ui;
    ConData& m_direct;
    ConData& m_newDirect;
    /// Also held by a save that outlives the form.
    std::shared_ptr<ConDataBackup> m_backup;
    /// The type of the connection is known; otherwise the form stays empty.
    bool m_formLoaded = false;
};
