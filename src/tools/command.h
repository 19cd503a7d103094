#pragma once

#include "database/wall_time.h"

#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QString>
#include <QStringList>

#include <cstdio>
#include <stdexcept>
#include <vector>

enum ExitStatus { Done = 0, Findings = 1, Failed = 2 };

/// A command of tadata.
struct Command {
    QString name; ///< one word or two
    QString purpose;
    QStringList arguments; ///< how the help calls the files and names that it takes
    QList<QCommandLineOption> options;
    int (*run)(const QStringList& arguments, const QCommandLineParser& options); ///< returns the exit status
};

/// What brings data in and out.
std::vector<Command> ExchangeCommands();

/// What looks at cards and brings punches onto them.
std::vector<Command> CardCommands();

/// A day given as an option. Throws UsageError when it is none.
Day DayOption(const QCommandLineParser& options, const QString& name);

void Print(FILE* stream, const QString& text);

/// What was asked for cannot be done as it was asked for.
class UsageError : public std::runtime_error {
public:
    explicit UsageError(const QString& text) : std::runtime_error(text.toStdString()) {}
};

/// One line on stderr that counts up, from the second second of the work on.
class ProgressLine {
public:
    ProgressLine() { timer_.start(); }
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void Show(const QString& state);

private:
    QElapsedTimer timer_;
    QString shown_;
};
