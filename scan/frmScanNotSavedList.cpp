#include "scan/frmScanNotSavedList.h"

#include "dialogs/ManagerInfo.h"
#include "model/ConData.h"
#include "platform/HelpHook.h"
#include "platform/HelpLinks.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"
#include "platform/controls/DisabledReason.h"
#include "platform/controls/HelpKey.h"
#include "platform/controls/ModalForm.h"
#include "scan/frmScanSelSaveProgress.h"
#include "scan/network/ScanState.h"
#include "scan/ui_frmScanNotSavedList.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QItemSelection>
#include <QPointer>
#include <QScrollBar>
#include <QShowEvent>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

QString DatabaseBroken()
{
    return Words::tr("Database error, connection to database broken.");
}

QString NothingSelected()
{
    return Words::tr("Nothing is selectd. Select node(s) from the above listbox.");
}

/// Sizes between which the labels are fitted to the columns, in points.
constexpr qreal SmallestLabel = 6;
constexpr qreal LabelStep = 0.5;
/// Lines that the list has room for when it opens.
constexpr int ShownLines = 16;

QFont LineFont()
{
    const QFont courier(QStringLiteral("Courier New"));
    return QFontInfo(courier).fixedPitch() ? courier : QFontDatabase::systemFont(QFontDatabase::FixedFont);
}

} // namespace

frmScanNotSavedList::frmScanNotSavedList(ConData& direct, ConData& newDirect, QWidget* parent)
    : QDialog(parent),
      m_ui(std::make_unique<Ui::frmScanNotSavedList>()),
      m_direct(direct),
      m_newDirect(newDirect)
{
    m_ui->setupUi(this);
    AlignLabels();
    Connect();
    UpdateNotSavedButtons();
}

frmScanNotSavedList::~frmScanNotSavedList() = default;

void frmScanNotSavedList::Connect()
{
    connect(m_ui->lstNotSavedNodes, &QListWidget::itemSelectionChanged, this,
            &frmScanNotSavedList::UpdateNotSavedButtons);
    connect(m_ui->lstNotSavedNodes, &QListWidget::itemDoubleClicked, this,
            &frmScanNotSavedList::cmdRename_Click);
    connect(m_ui->cmdSelectAll, &QPushButton::clicked, this, &frmScanNotSavedList::cmdSelectAll_Click);
    connect(m_ui->cmdRename, &QPushButton::clicked, this, &frmScanNotSavedList::cmdRename_Click);
    connect(m_ui->cmdSave, &QPushButton::clicked, this, &frmScanNotSavedList::cmdSave_Click);
    connect(m_ui->cmdReplace, &QPushButton::clicked, this, &frmScanNotSavedList::cmdReplace_Click);
    connect(m_ui->cmdManager, &QPushButton::clicked, this, &frmScanNotSavedList::cmdManager_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->cmdHelp, &QPushButton::clicked, this, &frmScanNotSavedList::cmdHelp_Click);
    UseHelpKey(*this, *m_ui->cmdHelp);
}

void frmScanNotSavedList::AlignLabels()
{
    QListWidget& list = *m_ui->lstNotSavedNodes;
    list.setFont(LineFont());
    const QFontMetricsF metrics(list.font());
    const qreal left =
        list.frameWidth() + style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &list) + 1;
    const auto columnAt = [&](int characters) {
        return static_cast<int>(std::lround(left + metrics.horizontalAdvance(QString(characters, u'0'))));
    };
    const int name = columnAt(SaveLine::AddressWidth + SaveLine::GapWidth);
    const int existsEnd = columnAt(SaveLine::Width - SaveLine::TooLongWidth);
    const int end = columnAt(SaveLine::Width);
    QLabel& columns = *m_ui->Label1;
    // Two blanks part the headings.
    const QString headings = columns.text();
    const QString beforeName = headings.left(headings.lastIndexOf(QStringLiteral("  ")) + 2);
    QFont font = columns.font();
    while (QFontMetrics(font).horizontalAdvance(beforeName) > name && font.pointSizeF() > SmallestLabel)
        font.setPointSizeF(font.pointSizeF() - LabelStep);
    for (QLabel* label : {m_ui->Label1, m_ui->Label2, m_ui->Label3, m_ui->Label4})
        label->setFont(font);
    columns.setContentsMargins(std::max(name - QFontMetrics(font).horizontalAdvance(beforeName), 0), 0, 0, 0);
    m_ui->Label2->setFixedWidth(end - existsEnd);
    m_ui->Label3->setFixedWidth(end - existsEnd);
    columns.setFixedWidth(existsEnd - m_ui->Label3->width());
    list.setMinimumWidth(end + list.frameWidth() + list.verticalScrollBar()->sizeHint().width() +
                         static_cast<int>(left));
    list.setMinimumHeight(static_cast<int>(metrics.height()) * ShownLines);
}

// Load ----------------------------------------------------------------------------------------------------

void frmScanNotSavedList::Form_Load()
{
    const QPointer<frmScanNotSavedList> alive(this);
    CheckNames();
    if (alive)
        UpdateNotSavedButtons();
}

void frmScanNotSavedList::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous())
        Form_Activate();
    if (std::exchange(m_loaded, true))
        return;
    // From the event loop, since the host may destroy the form under a box of the check.
    QMetaObject::invokeMethod(this, &frmScanNotSavedList::Form_Load, Qt::QueuedConnection);
}

void frmScanNotSavedList::Form_Activate()
{
    UpdateNotSavedButtons();
}

void frmScanNotSavedList::CheckNames()
{
    const QPointer<frmScanNotSavedList> alive(this);
    CheckNameLengths(Scan().ScanSaveList);
    const bool checked = CheckNamesInDatabase(Scan().ScanSaveList);
    if (!alive)
        return;
    if (checked)
        FillNotSavedList();
    else
        MsgBox(DatabaseBroken());
}

void frmScanNotSavedList::FillNotSavedList()
{
    QStringList lines;
    for (const ScanSaveRow& row : Scan().ScanSaveList) {
        if (!row.IsSaved())
            lines << SaveLineText(row);
    }
    const QSignalBlocker quiet(m_ui->lstNotSavedNodes);
    m_ui->lstNotSavedNodes->clear();
    m_ui->lstNotSavedNodes->addItems(lines);
    if (!lines.isEmpty())
        m_ui->lstNotSavedNodes->setCurrentRow(0);
}

void frmScanNotSavedList::UpdateNotSavedButtons()
{
    const bool selected = !SelectedLines().empty();
    const bool fits = selected && !SelectionHasTooLong();
    const DisabledReason unselected = selected ? DisabledReason::None : DisabledReason::NoLineSelected;
    const DisabledReason unfit = fits || !selected ? unselected : DisabledReason::NameTooLong;
    OfferCommand(*m_ui->cmdManager, unselected);
    OfferCommand(*m_ui->cmdRename, unselected);
    OfferCommand(*m_ui->cmdReplace, unfit);
    OfferCommand(*m_ui->cmdSave, fits && SelectionHasExisting() ? DisabledReason::NameExists : unfit);
    OfferCommand(*m_ui->cmdSelectAll,
                 m_ui->lstNotSavedNodes->count() > 0 ? DisabledReason::None : DisabledReason::NoLines);
}

// Selection -----------------------------------------------------------------------------------------------

std::vector<int> frmScanNotSavedList::SelectedLines() const
{
    std::vector<int> lines;
    for (const QModelIndex& index : m_ui->lstNotSavedNodes->selectionModel()->selectedIndexes())
        lines.push_back(index.row());
    std::sort(lines.begin(), lines.end());
    return lines;
}

QString frmScanNotSavedList::LineText(int line) const
{
    return m_ui->lstNotSavedNodes->item(line)->text();
}

bool frmScanNotSavedList::SelectionHasTooLong() const
{
    const std::vector<int> lines = SelectedLines();
    return std::any_of(lines.begin(), lines.end(),
                       [this](int line) { return LineTellsTooLong(LineText(line)); });
}

bool frmScanNotSavedList::SelectionHasExisting() const
{
    const std::vector<int> lines = SelectedLines();
    return std::any_of(lines.begin(), lines.end(),
                       [this](int line) { return LineTellsExisting(LineText(line)); });
}

bool frmScanNotSavedList::GetSelectedRows()
{
    std::vector<ScanSelSaveRow>& selected = Scan().ScanSelSaveRows;
    selected.clear();
    for (const int line : SelectedLines()) {
        const int row = FindRowByAddress(Scan().ScanSaveList, SaveLineAddress(LineText(line)));
        selected.push_back({line, row});
        if (row == 0)
            return false;
    }
    return !selected.empty();
}

bool frmScanNotSavedList::RequireSelectedRows()
{
    if (GetSelectedRows())
        return true;
    MsgBox(NothingSelected());
    return false;
}

void frmScanNotSavedList::SelectRows(const std::vector<int>& rows)
{
    QListWidget& list = *m_ui->lstNotSavedNodes;
    QItemSelection selection;
    for (const int row : rows) {
        const QModelIndex line = list.model()->index(row - 1 - CountSavedRows(Scan().ScanSaveList, row), 0);
        if (line.isValid())
            selection.select(line, line);
    }
    list.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void frmScanNotSavedList::cmdSelectAll_Click()
{
    m_ui->lstNotSavedNodes->selectAll();
    UpdateNotSavedButtons();
}

// Save ----------------------------------------------------------------------------------------------------

void frmScanNotSavedList::cmdSave_Click()
{
    RunSave(true);
}

void frmScanNotSavedList::cmdReplace_Click()
{
    RunSave(false);
}

void frmScanNotSavedList::RunSave(bool plain)
{
    if (!RequireSelectedRows())
        return;
    Scan().ScanSelSaveMode = plain;
    if (!ShowModalForm<frmScanSelSaveProgress>(m_direct, m_newDirect, this))
        return;
    FillNotSavedList();
    Scan().ScanSelSaveRows.clear();
    UpdateNotSavedButtons();
}

// Other controls --------------------------------------------------------------------------------------------

void frmScanNotSavedList::cmdManager_Click()
{
    (void)ShowManagerInfo(m_direct, *this);
}

void frmScanNotSavedList::cmdHelp_Click()
{
    ShowHelpTopic(HelpLinks::ScanNotSavedList);
}
