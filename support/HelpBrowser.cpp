#include "support/HelpBrowser.h"

#include "support/HelpFile.h"

#include <QEvent>
#include <QImage>
#include <QScrollBar>

namespace {

constexpr int SmallestZoom = -4;
constexpr int LargestZoom = 12;

/// Of two colours, nearer to the first.
QString Mixed(const QColor& one, const QColor& other)
{
    constexpr double share = 0.7;
    const auto mix = [](double a, double b) { return a * share + b * (1 - share); };
    return QColor::fromRgbF(float(mix(one.redF(), other.redF())), float(mix(one.greenF(), other.greenF())),
                            float(mix(one.blueF(), other.blueF())))
        .name();
}

} // namespace

HelpBrowser::HelpBrowser(QWidget* parent) : QTextBrowser(parent)
{
    constexpr int margin = 12;
    document()->setDocumentMargin(margin);
}

void HelpBrowser::SetFile(HelpFile* file)
{
    m_file = file;
    if (!file)
        clear();
}

void HelpBrowser::SetZoom(int steps)
{
    const int bounded = qBound(SmallestZoom, steps, LargestZoom);
    zoomIn(bounded - m_zoom);
    m_zoom = bounded;
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name)
{
    const QUrl url = source().isValid() && name.isRelative() ? source().resolved(name) : name;
    if (!m_file || url.scheme() != HelpFile::Scheme())
        return {};
    switch (type) {
    case QTextDocument::HtmlResource:
        return LoadPage(url);
    case QTextDocument::StyleSheetResource:
        return LoadStyle(url);
    case QTextDocument::ImageResource:
        return LoadPicture(url);
    default:
        return {};
    }
}

QVariant HelpBrowser::LoadPage(const QUrl& name) const
{
    const QByteArray page = m_file->Read(name);
    if (!page.isEmpty())
        return page;
    return tr("<h1>Not found</h1><p>The help has no page \"%1\".</p>").arg(name.fileName().toHtmlEscaped());
}

QString HelpBrowser::LoadStyle(const QUrl& name) const
{
    const QColor link = IsDark() ? QColor(0x7d, 0xb7, 0xf5) : QColor(0x0b, 0x57, 0xa4);
    const QString faint = Mixed(palette().color(QPalette::Base), palette().color(QPalette::Text));
    return QString::fromUtf8(m_file->Read(name)) +
           QStringLiteral("a { color: %1; } table, td, th { border: 1px solid %2; }").arg(link.name(), faint);
}

QVariant HelpBrowser::LoadPicture(const QUrl& name) const
{
    QByteArray picture;
    if (IsDark()) {
        QUrl dark = name;
        dark.setPath(name.path().replace(QStringLiteral("-light."), QStringLiteral("-dark.")));
        picture = m_file->Read(dark);
    }
    if (picture.isEmpty())
        picture = m_file->Read(name);
    return QImage::fromData(picture);
}

bool HelpBrowser::IsDark() const
{
    return palette().color(QPalette::Base).lightnessF() < palette().color(QPalette::Text).lightnessF();
}

void HelpBrowser::doSetSource(const QUrl& name, QTextDocument::ResourceType type)
{
    const QUrl url = source().isValid() ? source().resolved(name) : name;
    if (url.isValid() && url.scheme() != HelpFile::Scheme()) {
        Q_EMIT LinkRefused(url);
        return;
    }
    QTextBrowser::doSetSource(url, type);
}

void HelpBrowser::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || !m_file || !source().isValid())
        return;
    // The colours are part of the page.
    const int place = verticalScrollBar()->value();
    reload();
    verticalScrollBar()->setValue(place);
}
