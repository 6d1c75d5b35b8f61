#include "platform/HelpHook.h"

HelpHook& Help()
{
    static HelpHook hook;
    return hook;
}

void ShowHelpTopic(const QString& topic)
{
    if (Help().ShowHelpTopic)
        Help().ShowHelpTopic(topic);
}
