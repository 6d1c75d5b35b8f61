#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class QDialog;
class QLineEdit;
class QPushButton;

/// An operator who works in the dialogs that a command shows: types a change, presses Save, looks at what is
/// still there when the dialog stays open, and presses Cancel. Also closes what waits to be closed.
class DialogOperator : public QObject
{
    Q_OBJECT

public:
    /// New name of the record; empty: the name stays.
    QString Name;
    /// Connection type or, in the node dialog, the connection to choose; empty: what is shown stays.
    QString Choice;
    /// What is typed into the first parameter; empty: nothing.
    QString Value;
    /// Tries a refused save once more before Cancel.
    bool SavesAgain = false;

    /// Dialogs of a record that were worked in, and how often Save was pressed there.
    int Dialogs = 0;
    int Saves = 0;
    /// What should not have happened to the operator.
    QStringList Problems;

    /// Looks after each modal dialog until the end of its life.
    void Start();

private:
    void Tick();
    void WorkIn(QDialog& dialog);
    void WorkInConnection(QDialog& dialog);
    void WorkInNode(QDialog& dialog);
    void WorkInWaypoint(QDialog& dialog);
    bool TypeName(QLineEdit& box) const;
    static bool Choose(QDialog& dialog, const char* combo, const QString& text);
    /// Types the value into the first row; False: no editor takes it.
    bool TypeValue(QDialog& dialog, const char* grid) const;
    [[nodiscard]] bool ValueIsShown(const QDialog& dialog, const char* grid) const;
    [[nodiscard]] QString WhatIsLost(const QDialog& dialog) const;
    void Save(QDialog& dialog);
    static void Press(const QDialog& dialog, const char* button);
};
