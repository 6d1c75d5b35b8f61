#include "host/library/Zelka.h"

#include "platform/Components.h"
#include "platform/HelpHook.h"
#include "platform/Language.h"
#include "platform/ModuleFile.h"
#include "platform/controls/ModalForm.h"
#include "support/ComponentVersion.h"
#include "support/frmSplash.h"

#include <QByteArray>

namespace {

void ChooseVariable(const char* name, const QString& value)
{
    if (value.isEmpty())
        qunsetenv(name);
    else
        qputenv(name, value.toUtf8());
}

} // namespace

QString Zelka::Version()
{
    return QStringLiteral(ZELKA_VERSION);
}

void Zelka::ChooseDatabase(const QString& source)
{
    ChooseVariable("ZELKA_DBS32", source);
}

void Zelka::ChooseGateway(const QString& address)
{
    ChooseVariable("ZELKA_GATEWAY", address);
}

void Zelka::SetComponentFolders(const QStringList& folders)
{
    ::SetComponentFolders(folders);
}

bool Zelka::UseLanguage(const QString& language)
{
    return ::UseLanguage(language);
}

void Zelka::SetHelpViewer(const std::function<void(const QString& topic)>& show)
{
    Help().ShowHelpTopic = show;
}

void Zelka::ShowVersion(QWidget* parent)
{
    ShowModalForm<frmSplash>(parent);
}

void Zelka::RegisterControl()
{
    ::RegisterControl(ModuleFile());
}
