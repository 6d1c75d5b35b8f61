#include "components/syncconn/TargetReader.h"

#include "platform/TargetText.h"

#include <algorithm>

QString TargetHop::Value(QStringView keyword) const
{
    const auto found = std::ranges::find_if(parameters, [&](const Parameter& parameter) {
        return parameter.keyword == keyword && !parameter.value.isEmpty();
    });
    return found == parameters.end() ? QString() : found->value;
}

bool TargetReader::Read(const QString& target)
{
    *this = TargetReader();
    if (!ReadHops(target) || !ReadTiming() || !ReadGateway())
        return false;
    const TargetHop* options = LastHop(u"OPT");
    m_wantsHex = options && options->Value(u"DT").compare(u"UNIHEX", Qt::CaseInsensitive) == 0;
    return true;
}

const TargetHop* TargetReader::LastHop(QStringView name) const
{
    const auto found =
        std::find_if(m_hops.rbegin(), m_hops.rend(), [&](const TargetHop& hop) { return hop.name == name; });
    return found == m_hops.rend() ? nullptr : &*found;
}

int TargetReader::TimeOut(int otherwise) const
{
    if (m_timeOut < 0)
        return otherwise;
    return m_timeOut == 0 ? DefaultTimeOut : m_timeOut;
}

int TargetReader::Retries(int otherwise) const
{
    return m_retries < 0 ? otherwise : m_retries;
}

bool TargetReader::ReadHops(const QString& target)
{
    TargetText text(target);
    TargetItem item;
    while (text.Next(item)) {
        if (!item.hasEquals) {
            m_mistake = QStringLiteral("The item \"%1\" has no \"=\"").arg(item.keyword);
            return false;
        }
        if (item.IsHop()) {
            if (item.value.isEmpty()) {
                m_mistake = QStringLiteral("A \"WP=\" has no name");
                return false;
            }
            m_hops.push_back({item.value.toString().toUpper(), {}});
        } else if (m_hops.empty()) {
            m_mistake =
                QStringLiteral("The parameter \"%1\" stands before the first \"WP=\"").arg(item.keyword);
            return false;
        } else {
            m_hops.back().parameters.push_back({item.keyword.toString().toUpper(), item.value.toString()});
        }
    }
    return true;
}

bool TargetReader::ReadTiming()
{
    return std::ranges::all_of(m_hops, [this](const TargetHop& hop) {
        return ReadNumber(hop, u"TIME", 0, LargestTimeOut, m_timeOut) &&
               ReadNumber(hop, u"RETRY", 0, LargestRetries, m_retries);
    });
}

bool TargetReader::ReadGateway()
{
    const auto socket =
        std::ranges::find_if(m_hops, [](const TargetHop& hop) { return hop.name == u"SOCKET"; });
    if (socket == m_hops.end())
        return true;
    m_host = socket->Value(u"IP");
    if (m_host.isEmpty())
        m_host = socket->Value(u"HOST");
    int port = DefaultPort;
    if (!ReadNumber(*socket, u"PORT", 1, 65'535, port))
        return false;
    m_port = static_cast<quint16>(port);
    return true;
}

bool TargetReader::ReadNumber(const TargetHop& hop, QStringView keyword, int least, int most, int& number)
{
    const QString value = hop.Value(keyword);
    if (value.isEmpty())
        return true;
    const bool digitsOnly = std::ranges::all_of(value, [](QChar c) { return c >= u'0' && c <= u'9'; });
    bool fits = false;
    const int read = value.toInt(&fits);
    if (!digitsOnly || !fits || read < least || read > most) {
        m_mistake = QStringLiteral("%1 of %2 is \"%3\", but has to be a whole number from %4 to %5")
                        .arg(keyword, hop.name, value, QString::number(least), QString::number(most));
        return false;
    }
    number = read;
    return true;
}
