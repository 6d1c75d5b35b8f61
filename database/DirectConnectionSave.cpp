#include "database/DirectConnectionSave.h"

#include "database/ConObjectTrees.h"
#include "database/ConnectionSave.h"
#include "database/Gateway.h"
#include "database/SaveRoutines.h"
#include "database/SaveSupport.h"
#include "database/UnitOfWork.h"
#include "model/ConData.h"
#include "model/ModelState.h"
#include "model/TextHelpers.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"

namespace {

/// What the saved record is.
struct SavedConnection
{
    QString name;
    qint32 id = 0;
    QString typeName;
    qint32 position = 0;
};

/// The steps of one save, inside its unit of work.
class DirectConnectionSaving
{
public:
    /// Everything is taken before the begin, where a box can stand open and the dialog be gone.
    DirectConnectionSaving(const ConData& direct, const QString& name, TreeEntries& tree)
        : m_formerName(direct.ConName),
          m_target(direct.TargetString),
          m_isNew(direct.NewCon),
          m_viewNodes(Model().ConObject && Model().ConObject->ViewNodesChecked),
          m_tree(tree)
    {
        m_saved.name = name;
    }

    void Run(UnitOfWork& unit, const QString& typeLongName);
    [[nodiscard]] const SavedConnection& Saved() const { return m_saved; }

private:
    void Change(UnitOfWork& unit);
    void SaveAsNew(UnitOfWork& unit);
    void ReadRecord(UnitOfWork& unit, const QString& typeLongName);

    const QString m_formerName;
    const QString m_target;
    const bool m_isNew;
    const bool m_viewNodes;
    TreeEntries& m_tree;
    SavedConnection m_saved;
};

void DirectConnectionSaving::Run(UnitOfWork& unit, const QString& typeLongName)
{
    unit.Begin();
    bool exists = false;
    if (!Gateway().ConNameExistDb(m_saved.name, exists))
        unit.Refuse(Words::tr("Database search error."));
    if (exists && !m_isNew)
        Change(unit);
    else
        SaveAsNew(unit);
    ReadRecord(unit, typeLongName);
    unit.Commit();
}

void DirectConnectionSaving::Change(UnitOfWork& unit)
{
    if (!SaveConnectionChanges(m_formerName, m_saved.name, m_target, m_tree, m_viewNodes, m_saved.position))
        unit.Refuse(SaveText::ConnectionFailure());
}

void DirectConnectionSaving::SaveAsNew(UnitOfWork& unit)
{
    QString errorText;
    if (!SaveNewConnection(m_saved.name, m_target, m_tree, m_saved.position, m_viewNodes, errorText))
        CommitFailedSave(unit, errorText);
}

void DirectConnectionSaving::ReadRecord(UnitOfWork& unit, const QString& typeLongName)
{
    QString id;
    if (!Gateway().GetParentIDDb(m_saved.name, id))
        unit.Refuse(SaveText::ConnectionUnread());
    m_saved.id = ValInt(id);
    if (!Gateway().GetConTypeShortNameDb(typeLongName, m_saved.typeName))
        m_saved.typeName = QStringLiteral("Unknown");
}

void TakeRecord(const SavedConnection& saved, ConData& direct, ConData& newDirect)
{
    direct.ConName = saved.name;
    direct.ConDbID = saved.id;
    direct.ConTypeName = saved.typeName;
    direct.NewCon = false;
    direct.SelectPressed = true;
    // A name here would go before the saved connection on the Direct tab.
    newDirect.ConName.clear();
    if (Model().ConObject)
        Model().ConObject->SelectedTreeNodeIndex = saved.position;
}

/// Tells what forbids the save before the database is asked.
bool CanBeSaved(ConData& direct, const QString& name)
{
    if (!direct.SetTargetString(true) || name.isEmpty()) {
        MsgBox(SaveText::ParametersRefused());
        return false;
    }
    if (IsReservedConnectionName(name)) {
        ErrorBox(SaveText::ReservedName());
        return false;
    }
    return true;
}

} // namespace

bool SaveDirectDefinition(ConData& direct, ConData& newDirect, QString& name, const QString& typeLongName)
{
    name = Trim(name);
    // Other letters are the same name, and the record keeps its own.
    if (!direct.NewCon && name.compare(direct.ConName, Qt::CaseInsensitive) == 0)
        name = direct.ConName;
    if (!CanBeSaved(direct, name))
        return false;
    ConObjectTrees trees;
    DirectConnectionSaving saving(direct, name, trees.Connections());
    UnitOfWork unit{&trees.Connections()};
    if (!unit.Run([&](UnitOfWork& work) { saving.Run(work, typeLongName); }))
        return false;
    TakeRecord(saving.Saved(), direct, newDirect);
    ConObjectTrees::Select(trees.Connections(), saving.Saved().position);
    return true;
}
