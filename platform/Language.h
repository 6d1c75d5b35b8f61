#pragma once

#include <QStringList>

/// The language of what an operator reads: English, unless the operator or the host chooses another.

/// Codes of the languages there are words for, English first: "en", "de", "fr".
[[nodiscard]] QStringList OfferedLanguages();

/// A language's name in the language itself, such as "Deutsch"; empty for one that is not offered.
[[nodiscard]] QString LanguageName(const QString& language);

/// The first that is offered among what the command line says, the variable ZELKA_LANGUAGE, and what was
/// stored; else English. A country behind a code ("de_AT", "fr-CH.UTF-8") is left out.
[[nodiscard]] QString ChosenLanguage(const QString& commandLine, const QString& stored);

/// Takes the words of a language, those of Qt's own buttons among them, into use in the whole program, in the
/// place of those of the last call. False: the language is not offered, and nothing was changed.
///
/// Windows keep the words that they were made with, so a host calls this before it makes the control. Needs
/// the application object. Thread: the application's. What is stored, sent and read by other programs
/// (targets, default names, settings) is the same in all languages.
[[nodiscard]] bool UseLanguage(const QString& language);

/// Code of the language in use.
[[nodiscard]] QString LanguageInUse();
