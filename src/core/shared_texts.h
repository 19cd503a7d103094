#pragma once

#include <QHash>
#include <QSet>
#include <QString>

#include <vector>

/// Keeps one copy of each text: thousands of rows share a few codes and names.
class SharedTexts {
public:
    /// The kept copy; null for an empty text.
    QString Of(const QString& text) { return text.isEmpty() ? QString() : *texts_.insert(text); }

private:
    QSet<QString> texts_;
};

/// The same where there are millions of rows: they keep a text's number, which takes four bytes. Number 0 is
/// the null text.
class NumberedTexts {
public:
    quint32 NumberOf(const QString& text) {
        if (text.isNull())
            return 0;
        if (last_ != 0 && texts_[last_] == text)
            return last_;
        const auto known = numbers_.constFind(text);
        last_ = known != numbers_.cend() ? *known : static_cast<quint32>(texts_.size());
        if (known == numbers_.cend()) {
            numbers_.insert(text, last_);
            texts_.push_back(text);
        }
        return last_;
    }
    const QString& Text(quint32 number) const { return texts_[number]; }

private:
    QHash<QString, quint32> numbers_;
    std::vector<QString> texts_{QString()};
    quint32 last_ = 0; ///< rows that follow each other often have the same text
};
