#include "host/workstation/frmAbout.h"

#include "host/workstation/ui_frmAbout.h"
#include "platform/controls/ModalForm.h"
#include "support/frmSplash.h"

#include <QIcon>

frmAbout::frmAbout(const QString& database, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmAbout>())
{
    m_ui->setupUi(this);
    constexpr int pictureSize = 64;
    m_ui->imgApplication->setPixmap(QIcon(QStringLiteral(":/zelka/pictures/zelka.svg"))
                                        .pixmap(QSize(pictureSize, pictureSize), devicePixelRatioF()));
    QFont large = m_ui->lblName->font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    large.setBold(true);
    m_ui->lblName->setFont(large);
    m_ui->lblVersion->setText(QStringLiteral(ZELKA_VERSION));
    m_ui->lblQt->setText(QString::fromLatin1(qVersion()));
    m_ui->lblDatabase->setText(database);
    connect(m_ui->cmdVersion, &QPushButton::clicked, this, &frmAbout::cmdVersion_Click);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmAbout::~frmAbout() = default;

void frmAbout::cmdVersion_Click()
{
    ShowModalForm<frmSplash>(this);
}
