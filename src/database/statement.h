#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

#include <vector>

/// A value as it stands in a statement: between single quotes. A value that holds a single quote is refused
/// with a StatementError, so that no typed text can change what a statement means.
QString Quoted(const QString& value);

/// One piece of a statement of the program's dialect.
struct StatementToken {
    enum class Kind { Word, Name, Text, Date, Number, Symbol, Space };
    Kind kind;
    /// What stands between the quotes of a Name, Text or Date; the piece itself otherwise.
    QString text;

    bool Is(QStringView symbol) const { return kind == Kind::Symbol && text == symbol; }
    bool IsWord(QStringView word) const {
        return kind == Kind::Word && text.compare(word, Qt::CaseInsensitive) == 0;
    }
};

/// Cuts a statement into its pieces: bare words, names in brackets, backticks or double quotes, texts in
/// single quotes, dates between "#", numbers, symbols and blanks. One statement only: ";", comments, a quote
/// that is not closed and a doubled quote are refused with a StatementError.
std::vector<StatementToken> Tokenize(QStringView statement);
