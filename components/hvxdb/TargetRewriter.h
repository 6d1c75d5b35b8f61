#pragma once

#include <QString>
#include <QStringView>

/// Composes the checked form of a target: the original with some pieces replaced or left out.
class TargetRewriter
{
public:
    /// The original has to outlive the rewriter.
    explicit TargetRewriter(const QString& original) : m_original(original) {}

    /// What stands in the original from `start` to `end` becomes `text`. Calls come in ascending order.
    void Replace(qsizetype start, qsizetype end, QStringView text);

    /// The composed text; the original itself, shared, when nothing was replaced.
    [[nodiscard]] QString Take();

private:
    const QString& m_original;
    QString m_text;
    qsizetype m_copied = 0;
};
