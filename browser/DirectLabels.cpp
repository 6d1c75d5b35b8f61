#include "browser/DirectLabels.h"

#include "browser/ui_BrowserControl.h"
#include "database/Gateway.h"
#include "model/ItemList.h"
#include "model/TextHelpers.h"

namespace {

void LabelFromParameter(QLabel& label, const QString& waypoint, const QString& keyword)
{
    QString list;
    PairTable keywords;
    PairTable longNames;
    int count = 0;
    if (!Gateway().GetWpParametersDb(waypoint, 0, list) ||
        !ConvertItemListToArray(list, true, keywords, count))
        return;
    if (!Gateway().GetWpParametersLongNamesDb(waypoint, 0, list) ||
        !ConvertItemListToArray(list, true, longNames, count))
        return;
    for (std::size_t row = 0; row < qMin(keywords.size(), longNames.size()); ++row) {
        if (keywords[row].first != keyword)
            continue;
        // A single "&" in a label would become an access key.
        QString longName = longNames[row].first;
        ::DoubleAnyChar(longName, QStringLiteral("&"));
        label.setText(::ConvertWordsBeginningUpperCase(longName, QStringLiteral(" &")) + QLatin1Char(':'));
        return;
    }
}

} // namespace

void InitializeDirectLabels(const Ui::BrowserControl& ui)
{
    for (int page = 0; page < 2; ++page) {
        QString longName;
        if (Gateway().GetNodeTypeLongNameDb(ui.tabNode->tabText(page), longName))
            ui.tabNode->setTabText(page, DoubleAnyChar(longName, QStringLiteral("&")));
    }
    const QString net4 = QStringLiteral("NET4");
    LabelFromParameter(*ui.lblAddr, net4, QStringLiteral("ADDR"));
    LabelFromParameter(*ui.lblTime, net4, QStringLiteral("TIME"));
    LabelFromParameter(*ui.lblRetry, net4, QStringLiteral("RETRY"));
    const QString fe = QStringLiteral("FE");
    LabelFromParameter(*ui.lblFeId, fe, QStringLiteral("ID"));
    LabelFromParameter(*ui.lblFeCh, fe, QStringLiteral("CH"));
    const QString nemml = QStringLiteral("NEMML");
    LabelFromParameter(*ui.lblUser, nemml, QStringLiteral("USER"));
    LabelFromParameter(*ui.lblPsw, nemml, QStringLiteral("PSW"));
    LabelFromParameter(*ui.lblPath, nemml, QStringLiteral("PATH"));
    LabelFromParameter(*ui.lblTimeMML, nemml, QStringLiteral("TIME"));
    LabelFromParameter(*ui.lblRetryMML, nemml, QStringLiteral("RETRY"));
}
