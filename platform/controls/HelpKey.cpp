#include "platform/controls/HelpKey.h"

#include <QAbstractButton>
#include <QShortcut>

void UseHelpKey(QWidget& form, QAbstractButton& help)
{
    const auto* key = new QShortcut(QKeySequence(Qt::Key_F1), &form);
    QObject::connect(key, &QShortcut::activated, &help, [&help] { help.click(); });
}
