#pragma once

#include <QString>
#include <QValidator>

/// Lets digits alone into a text box, whatever way they come: typed, pasted, dropped. Of what was in the text
/// taken from the cell, signs and letters may stay or go, but none is added. Blanks around what is pasted are
/// dropped.
class GridDigits : public QValidator
{
    Q_OBJECT

public:
    GridDigits(const QString& takenText, QObject* parent);

    State validate(QString& input, int& position) const override;

private:
    QString m_takenStrange;
};
