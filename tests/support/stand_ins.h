#pragma once

#include "core/clock.h"
#include "core/dialogs.h"

#include <QStringList>

#include <ostream>
#include <vector>

/// So that a failed comparison prints texts, not bytes.
inline void PrintTo(const QString& text, std::ostream* os) {
    *os << '"' << text.toStdString() << '"';
}

/// A clock that stands still until a test sets it.
class TestClock : public Clock {
public:
    explicit TestClock(WallTime start) : now(start) {}
    WallTime Now() const override { return now; }
    WallTime now;
};

/// Keeps what the user would have been shown.
class TestDialogs : public Dialogs {
public:
    void Show(Icon icon, const QString& text) override {
        texts << text;
        icons.push_back(icon);
    }
    using Dialogs::Ask;
    Answer Ask(const QString& question, Answer) override {
        questions << question;
        return answers.isEmpty() ? Answer::Cancel : answers.takeFirst();
    }
    QString Last() const { return texts.isEmpty() ? QString() : texts.last(); }

    QStringList texts;
    std::vector<Icon> icons;
    QStringList questions;
    /// What the user will answer, in order; Cancel when there is nothing left.
    QList<Answer> answers;
};
