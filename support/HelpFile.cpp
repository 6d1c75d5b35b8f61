#include "support/HelpFile.h"

#include "platform/ComponentError.h"
#include "platform/Words.h"

#include <QDir>

namespace {

[[noreturn]] void Refuse(quint32 number, const QString& text)
{
    throw ComponentError(number, QStringLiteral("modHTMLHelp"), text);
}

} // namespace

HelpFile::HelpFile(const QString& path)
    : m_path(path), m_folder(QDir::temp().filePath(QStringLiteral("zelka-help-XXXXXX")))
{
    const QString words = Words::tr("The help file %1 cannot be used.").arg(QDir::toNativeSeparators(path));
    if (!m_folder.isValid())
        Refuse(HelpErrors::NoWorkingFolder,
               Words::tr("There is no room for the help: %1").arg(m_folder.errorString()));
    m_engine = std::make_unique<QHelpEngine>(m_folder.filePath(QStringLiteral("Browser4.qhc")));
    m_engine->setReadOnly(false);
    m_engine->setUsesFilterEngine(true);
    const QString space = QHelpEngineCore::namespaceName(path);
    // Set up again behind the registration: contents and keywords are read then.
    if (space.isEmpty() || !m_engine->setupData() || !m_engine->registerDocumentation(path) ||
        !m_engine->setupData())
        Refuse(HelpErrors::UnusableFile, words);
    // All pages lie in one folder.
    const QList<QUrl> pages = m_engine->files(space, QString(), QStringLiteral("htm"));
    if (pages.isEmpty())
        Refuse(HelpErrors::UnusableFile, words);
    m_pages = pages.first().adjusted(QUrl::RemoveFilename | QUrl::RemoveFragment);
}

QUrl HelpFile::UrlOf(const QString& topic) const
{
    return m_pages.resolved(QUrl(topic));
}

bool HelpFile::Holds(const QUrl& url) const
{
    return m_engine->findFile(url.adjusted(QUrl::RemoveFragment)).isValid();
}
