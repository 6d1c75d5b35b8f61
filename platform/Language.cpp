#include "platform/Language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QPointer>
#include <QTranslator>

#include <algorithm>
#include <array>
#include <vector>

// Outside of any namespace, as the macro asks for.
static void LoadCatalogues()
{
    Q_INIT_RESOURCE(translations);
}

namespace {

struct OfferedLanguage
{
    QLatin1String code;
    QStringView name;
};

constexpr std::array<OfferedLanguage, 3> Languages{{
    {QLatin1String("en"), u"English"},
    {QLatin1String("de"), u"Deutsch"},
    {QLatin1String("fr"), u"Français"},
}};

QString English()
{
    return Languages.front().code;
}

/// The one in use, and its translators, which the application object may take along.
struct InUse
{
    QString language = English();
    std::vector<QPointer<QTranslator>> translators;
};

InUse& State()
{
    static InUse state;
    return state;
}

/// The code alone, in small letters.
QString CodeOf(const QString& language)
{
    const auto isLetter = [](QChar c) { return c.isLetter(); };
    const auto end = std::find_if_not(language.cbegin(), language.cend(), isLetter);
    return language.left(end - language.cbegin()).toLower();
}

void Install(const QString& name, const QString& folder)
{
    auto* translator = new QTranslator(QCoreApplication::instance());
    // Qt's own words may not be installed; its buttons are English then.
    if (translator->load(name, folder) && QCoreApplication::installTranslator(translator))
        State().translators.emplace_back(translator);
    else
        delete translator;
}

} // namespace

QStringList OfferedLanguages()
{
    QStringList codes;
    for (const OfferedLanguage& language : Languages)
        codes << language.code;
    return codes;
}

QString LanguageName(const QString& language)
{
    const auto* const found =
        std::find_if(Languages.begin(), Languages.end(),
                     [&](const OfferedLanguage& offered) { return offered.code == language; });
    return found == Languages.end() ? QString() : found->name.toString();
}

QString ChosenLanguage(const QString& commandLine, const QString& stored)
{
    for (const QString& choice : {commandLine, qEnvironmentVariable("ZELKA_LANGUAGE"), stored}) {
        if (OfferedLanguages().contains(CodeOf(choice)))
            return CodeOf(choice);
    }
    return English();
}

bool UseLanguage(const QString& language)
{
    if (!OfferedLanguages().contains(language))
        return false;
    LoadCatalogues();
    for (const QPointer<QTranslator>& translator : State().translators)
        delete translator;
    State() = {language, {}};
    if (language == English())
        return true;
    Install(QStringLiteral("qtbase_") + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    Install(QStringLiteral("zelka_") + language, QStringLiteral(":/zelka/translations"));
    return true;
}

QString LanguageInUse()
{
    return State().language;
}
