#include "components/hvxdb/DriverStatement.h"

#include <QStringList>

namespace {

/// No statement of the component has more values.
constexpr int MostValues = 16;

/// Names of the values of a statement, in order.
const QStringList& ValueNames()
{
    static const QStringList names = [] {
        QStringList list;
        for (int i = 0; i < MostValues; ++i)
            list << QStringLiteral(":v%1").arg(i);
        return list;
    }();
    return names;
}

/// A statement of the component, in which "?" is nothing but a value, with named values.
QString NamedText(QString text)
{
    int value = 0;
    for (qsizetype at = text.indexOf(u'?'); at >= 0; at = text.indexOf(u'?', at)) {
        const QString& name = ValueNames()[value++];
        text.replace(at, 1, name);
        at += name.size();
    }
    return text;
}

} // namespace

DriverStatement::DriverStatement(const QSqlDatabase& database, const QString& text, bool rowByRow,
                                 Binding binding)
    : m_query(database), m_text(binding == Binding::ByName ? NamedText(text) : text), m_binding(binding)
{
    m_query.setForwardOnly(rowByRow);
}

bool DriverStatement::Execute(const QVariantList& values)
{
    m_prepared = m_prepared || m_query.prepare(m_text);
    if (!m_prepared)
        return false;
    const bool byName = m_binding == Binding::ByName;
    for (qsizetype i = 0; i < values.size(); ++i) {
        const QVariant value = BoundValue(values[i]);
        if (byName)
            m_query.bindValue(ValueNames()[i], value);
        else
            m_query.bindValue(static_cast<int>(i), value);
    }
    return m_query.exec();
}

std::optional<QSqlError> DriverStatement::Failure() const
{
    const QSqlError error = m_query.lastError();
    return error.isValid() ? std::optional(error) : std::nullopt;
}

QVariant DriverStatement::Value(int column) const
{
    // An engine may keep NULL apart from the type's own null.
    return m_query.isNull(column) ? QVariant() : m_query.value(column);
}

QVariant DriverStatement::BoundValue(const QVariant& value)
{
    // The empty text is a value; a null text would become the database's NULL.
    const bool isNullText = value.userType() == QMetaType::QString && value.toString().isNull();
    return isNullText ? QVariant(QStringLiteral("")) : value;
}
