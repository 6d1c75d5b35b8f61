#include "database/NodeSave.h"
#include "dialogs/GridEdit.h"
#include "dialogs/GridEditors.h"
#include "dialogs/frmChSelPktSize.h"
#include "dialogs/frmDatabaseNodeProp.h"
#include "dialogs/ui_frmDatabaseNodeProp.h"
#include "model/ConData.h"
#include "model/PacketSizes.h"
#include "model/TextHelpers.h"
#include "platform/MsgBox.h"
#include "platform/controls/ModalForm.h"

#include <QPointer>

// What the Save button does.

bool frmDatabaseNodeProp::IsFePage(int row) const
{
    const QListWidgetItem* page = m_ui->lstWPlist->item(row);
    return page && page->text() == QLatin1String("FE Parameters");
}

QString frmDatabaseNodeProp::ShownValue(int row) const
{
    const bool isCurrent = m_ui->grdNodeParam->Row() == row;
    if (isCurrent && GridTextOpen())
        return m_ui->txtGridEdit->text();
    if (isCurrent && GridComboOpen()) {
        const QString text = GridComboText();
        return TextContains(text, u"Default") ? GridEdit().GridParameter.text : text;
    }
    return m_ui->grdNodeParam->TextMatrix(row, ParameterGrid::ValueColumn);
}

bool frmDatabaseNodeProp::PacketSizeFits() const
{
    if (m_ui->cboNodeType->currentText() != QLatin1String("T4 Node") ||
        !IsFePage(m_ui->lstWPlist->currentRow()) || m_rowCount < FePacketSizeRow)
        return true;
    const qint32 channel = ValInt(ShownValue(FeChannelRow));
    const int size = PacketSizeOfChannel(channel);
    return channel >= 0 && (size == 0 || size == ValInt(ShownValue(FePacketSizeRow)));
}

void frmDatabaseNodeProp::cmdSave_Click()
{
    if (!PacketSizeFits()) {
        ShowModalForm<frmChSelPktSize>(this);
        return;
    }
    if (!GridCommitEdit()) {
        GridPlaceCell(m_ui->grdNodeParam->Row(), ParameterGrid::ValueColumn);
        return;
    }
    if (IsReservedNodeName(m_ui->txtNodeName->text())) {
        MsgBox(QStringLiteral("'New Node' cannot be used as a node name, give a new name."));
        return;
    }
    NodeSaveRequest request{m_ui->txtNodeName->text(), m_ui->cboConName->currentText(),
                            [this] { SaveOneWpValues(); }, GridParameters(), m_rowCount};
    const QPointer<frmDatabaseNodeProp> alive(this);
    const bool saved = SaveNode(m_con, request);
    // The host may have closed the window under a box.
    if (!alive)
        return;
    m_ui->txtNodeName->setText(request.name);
    if (saved)
        accept();
}
