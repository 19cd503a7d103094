#pragma once

#include <QSet>
#include <QString>

/// Keeps one copy of each text: thousands of rows share a few codes and names.
class SharedTexts {
public:
    /// The kept copy; null for an empty text.
    QString Of(const QString& text) { return text.isEmpty() ? QString() : *texts_.insert(text); }

private:
    QSet<QString> texts_;
};
