#include "browser/frmFindElement.h"

#include "browser/frmSelectTreeNode.h"
#include "browser/ui_frmFindElement.h"
#include "platform/controls/TreeView.h"

#include <QShowEvent>

namespace {

/// Entries that one step of the count looks at: a few milliseconds at most.
constexpr int EntriesBetweenEvents = 20000;
const QString NoCount = QStringLiteral(" ");

} // namespace

frmFindElement::frmFindElement(QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmFindElement>())
{
    m_ui->setupUi(this);
    m_betweenSteps.setInterval(0);
    connect(&m_betweenSteps, &QTimer::timeout, this, &frmFindElement::CountSome);
    connect(m_ui->txtMatch_Patern, &QLineEdit::textChanged, this, &frmFindElement::txtMatch_Patern_Change);
    connect(m_ui->Go, &QPushButton::clicked, this, &frmFindElement::Go_Click);
    connect(m_ui->Cancel, &QPushButton::clicked, this, &frmFindElement::Cancel_Click);
}

frmFindElement::~frmFindElement() = default;

QString frmFindElement::Text() const
{
    return m_ui->txtMatch_Patern->text();
}

void frmFindElement::SetText(const QString& text)
{
    m_ui->txtMatch_Patern->setText(text);
    m_ui->txtMatch_Patern->selectAll();
}

void frmFindElement::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (event->spontaneous() || !tvw)
        return;
    m_ui->txtMatch_Patern->setFocus();
    // What is counted changes under the count when another program's changes are shown.
    const auto* const tree = static_cast<const TreeEntries*>(tvw->model());
    connect(tree, &QAbstractItemModel::rowsInserted, this, &frmFindElement::BeginCount, Qt::UniqueConnection);
    connect(tree, &QAbstractItemModel::rowsRemoved, this, &frmFindElement::BeginCount, Qt::UniqueConnection);
    connect(tree, &QAbstractItemModel::rowsMoved, this, &frmFindElement::BeginCount, Qt::UniqueConnection);
    connect(tree, &QAbstractItemModel::layoutChanged, this, &frmFindElement::BeginCount,
            Qt::UniqueConnection);
    connect(tree, &QAbstractItemModel::modelReset, this, &frmFindElement::BeginCount, Qt::UniqueConnection);
    connect(tree, &QAbstractItemModel::dataChanged, this, &frmFindElement::BeginCount, Qt::UniqueConnection);
    BeginCount();
}

void frmFindElement::txtMatch_Patern_Change()
{
    m_ui->Go->setEnabled(!Text().isEmpty());
    BeginCount();
}

// Counting --------------------------------------------------------------------------------------------------

void frmFindElement::BeginCount()
{
    m_next = 1;
    m_counted = 0;
    m_pattern.reset();
    m_betweenSteps.stop();
    if (Text().isEmpty() || !tvw) {
        m_ui->lblHits->setText(NoCount);
        return;
    }
    m_pattern.emplace(Text());
    m_betweenSteps.start();
}

void frmFindElement::CountSome()
{
    if (!tvw || !m_pattern) {
        m_betweenSteps.stop();
        return;
    }
    std::vector<TreeEntries::Index> found;
    const auto& tree = static_cast<const TreeEntries&>(*tvw->model());
    const bool more = tree.FindContaining(*m_pattern, m_next, EntriesBetweenEvents, found);
    m_counted += static_cast<qsizetype>(found.size());
    if (more)
        return;
    m_betweenSteps.stop();
    m_ui->lblHits->setText(tr("Entries found: %1").arg(m_counted));
}

// Buttons ---------------------------------------------------------------------------------------------------

void frmFindElement::Go_Click()
{
    if (!tvw || Text().isEmpty())
        return;
    const QPointer<frmFindElement> alive(this);
    const QPointer<frmSelectTreeNode> form(new frmSelectTreeNode(this));
    form->match = Text();
    form->tvw = tvw;
    form->unloaded = unloaded;
    form->exec();
    // The host may have destroyed the control, and both forms with it.
    if (!alive || !form)
        return;
    result = form->result;
    delete form;
    if (result)
        accept();
    else
        m_ui->txtMatch_Patern->setFocus();
}

void frmFindElement::Cancel_Click()
{
    result = {};
    reject();
}
