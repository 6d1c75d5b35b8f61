#include "database/DatabaseState.h"
#include "database/Gateway.h"
#include "dialogs/DialogState.h"
#include "dialogs/GridEdit.h"
#include "dialogs/GridEditors.h"
#include "dialogs/frmDatabaseNodeProp.h"
#include "dialogs/ui_frmDatabaseNodeProp.h"
#include "model/ConData.h"
#include "model/LookupHelpers.h"
#include "model/ModelState.h"
#include "model/ParameterLists.h"
#include "model/TextHelpers.h"
#include "platform/Words.h"
#include "platform/controls/DisabledReason.h"

#include <QSignalBlocker>

// The connection and the class of a node.

namespace {

QString Snmp()
{
    return QStringLiteral("SNMP");
}

/// Long names of the node classes, those of SNMP or the others. A class without one is left out.
QStringList ClassLongNames(bool ofSnmp)
{
    QStringList names;
    QString list;
    PairTable types;
    int count = 0;
    if (!Gateway().GetNodeTypeListDb(list) || !ConvertItemListToArray(list, false, types, count))
        return names;
    for (const ItemPair& type : types) {
        QString longName;
        if (Gateway().GetNodeTypeLongNameDb(type.first, longName) && TextContains(longName, Snmp()) == ofSnmp)
            names << longName;
    }
    return names;
}

} // namespace

// Connection ------------------------------------------------------------------------------------------------

void frmDatabaseNodeProp::cboConName_Click()
{
    if (IsReady())
        FillClasses(ShowConnectionType());
}

bool frmDatabaseNodeProp::ShowConnectionType()
{
    QString shortName = QStringLiteral("Unknown");
    const int type = GetConTypeOfParent(m_ui->cboConName->currentText(), shortName);
    const int picture = Model().ConOrderObject ? Model().ConOrderObject->GetPicIndxByResourcePos(type)
                                               : ConOrderClass::UnknownPicture;
    QString longName;
    if (!Gateway().GetConTypeLongNameDb(shortName, longName))
        longName.clear();
    m_ui->imgConArray->setProperty("picture", picture);
    m_ui->imgConArray->setPixmap(ConPicturePixmap(picture, *this));
    m_ui->lblConnectionType->setText(Words::tr("Connection Type: %1").arg(longName));
    return IsSnmpConType(type, shortName);
}

void frmDatabaseNodeProp::FillClasses(bool isSnmp)
{
    OfferCommand(*m_ui->cmdManager, isSnmp ? DisabledReason::SnmpHasNoManager : DisabledReason::None);
    QStringList classes = ClassLongNames(isSnmp);
    // What is stored is shown as it is, whether it is offered or not; what is chosen stays, also where the
    // database could not name it again.
    const bool isStored = !IsReady() && !Con().NewNode;
    const bool isChosen =
        !m_savedTypeLongName.isEmpty() && TextContains(m_savedTypeLongName, Snmp()) == isSnmp;
    if (classes.isEmpty() || ((isStored || isChosen) && !FindComboItem(classes, m_savedTypeLongName)))
        classes << m_savedTypeLongName;
    const bool familyChanged = IsReady() && isSnmp != m_isSnmp;
    if (familyChanged)
        KeepClass();
    m_isSnmp = isSnmp;
    const KeptClass& former = m_keptClasses[isSnmp ? 1 : 0];
    const bool comesBack = familyChanged && FindComboItem(classes, former.longName);
    const QString wanted = comesBack ? former.longName : m_savedTypeLongName;
    const bool takeFirst = isSnmp && IsReady() && !comesBack;
    {
        const QSignalBlocker quiet(m_ui->cboNodeType);
        m_ui->cboNodeType->clear();
        m_ui->cboNodeType->addItems(classes);
        m_ui->cboNodeType->setCurrentIndex(takeFirst ? 0 : SelectComboItem(classes, wanted));
    }
    ChangeClass(comesBack ? former.tables : std::vector<WpData>());
}

void frmDatabaseNodeProp::KeepClass()
{
    Pages().StoreValues();
    KeptClass& kept = m_keptClasses[m_isSnmp ? 1 : 0];
    kept.longName = m_savedTypeLongName;
    kept.tables.clear();
    for (int waypoint = 1; waypoint <= Con().NodeWpCount; ++waypoint)
        kept.tables.push_back(Con().GetWpData(waypoint));
}

// Class -----------------------------------------------------------------------------------------------------

void frmDatabaseNodeProp::cboNodeType_Click()
{
    ChangeClass({});
}

void frmDatabaseNodeProp::ChangeClass(const std::vector<WpData>& tables)
{
    const QString longName = m_ui->cboNodeType->currentText();
    if (longName == m_savedTypeLongName)
        return;
    const bool loaded = Pages().ChangeClass(longName, [&] {
        for (int waypoint = 1; waypoint <= Con().NodeWpCount; ++waypoint) {
            if (const auto index = static_cast<std::size_t>(waypoint) - 1; index < tables.size())
                Con().GetWpData(waypoint) = tables[index];
        }
    });
    // A class that failed can be chosen again.
    m_savedTypeLongName = loaded ? longName : QString();
    // An editor takes the focus, which would stop those who step through the connections by keys.
    if (loaded && IsReady())
        Pages().GoToFirstValue(!m_ui->cboConName->hasFocus());
}
