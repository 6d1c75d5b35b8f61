#include "support/frmSplash.h"

#include "support/ComponentVersion.h"
#include "support/ui_frmSplash.h"

#include <QEvent>
#include <QIcon>
#include <QVersionNumber>

namespace {

QString VersionText(const QString& version)
{
    return frmSplash::tr("Version %1").arg(version);
}

} // namespace

frmSplash::frmSplash(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmSplash>())
{
    m_ui->setupUi(this);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    Form_Load();
}

frmSplash::~frmSplash() = default;

void frmSplash::Form_Load()
{
    constexpr int pictureSize = 96;
    m_ui->imgApplication->setPixmap(QIcon(QStringLiteral(":/zelka/pictures/zelka.svg"))
                                        .pixmap(QSize(pictureSize, pictureSize), devicePixelRatioF()));
    // On a ground of its own, so that the grey can be read whatever the colours of the desktop are.
    QPalette colors = m_ui->fraPicture->palette();
    colors.setColor(QPalette::Window, Qt::white);
    colors.setColor(QPalette::WindowText, Qt::black);
    m_ui->fraPicture->setPalette(colors);
    constexpr int grey = 100;
    colors.setColor(QPalette::WindowText, QColor(grey, grey, grey));
    m_ui->lblVersion->setPalette(colors);

    QFont large = m_ui->lblName->font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    large.setBold(true);
    m_ui->lblName->setFont(large);
    m_ui->lblVersion->setText(
        VersionText(FormattedVersion(QVersionNumber::fromString(QStringLiteral(ZELKA_VERSION)))));
}

void frmSplash::Form_Activate()
{
    const QString path = GetComponentPath(ControlProgId);
    if (path.isEmpty())
        return;
    QString text = VersionText(GetComponentFileVersion(path));
    const QString details = GetComponentFileDetails(path);
    if (!details.isEmpty())
        text += QStringLiteral(", ") + details;
    m_ui->lblVersion->setText(text);
    m_ui->lblVersion->setToolTip(path);
}

bool frmSplash::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        Form_Activate();
    return QDialog::event(event);
}
