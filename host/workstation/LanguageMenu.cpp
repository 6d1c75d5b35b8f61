#include "host/workstation/LanguageMenu.h"

#include "platform/Language.h"
#include "platform/MsgBox.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QSettings>

namespace {

QString LanguageKey()
{
    return QStringLiteral("Language");
}

} // namespace

LanguageMenu::LanguageMenu(QMenu& menu, QSettings& settings) : QObject(&menu), m_settings(settings)
{
    const QString chosen = Stored(settings).isEmpty() ? LanguageInUse() : Stored(settings);
    auto* group = new QActionGroup(this);
    for (const QString& language : OfferedLanguages()) {
        QAction* action = menu.addAction(LanguageName(language));
        action->setObjectName(QStringLiteral("mnuLanguage_") + language);
        action->setCheckable(true);
        action->setChecked(language == chosen);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, language] { Choose(language); });
    }
}

QString LanguageMenu::Stored(const QSettings& settings)
{
    const QString language = settings.value(LanguageKey()).toString();
    return OfferedLanguages().contains(language) ? language : QString();
}

void LanguageMenu::Choose(const QString& language)
{
    m_settings.setValue(LanguageKey(), language);
    if (language != LanguageInUse())
        MsgBox(tr("The language changes when the workstation is started again."), BoxFlags::Information);
}
