#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <map>

/// The sum of decimal numbers, however many decimals they have: nothing is rounded.
class ExactSum {
public:
    /// Adds the number that these digits make: "-12.5". They have no exponent.
    void Add(QStringView digits);

    /// In digits, without zeros that say nothing.
    QString Text() const;

private:
    /// Nine digits each: the group at 0 counts units, that at -1 units of the ninth decimal.
    std::map<int, qint64> groups_;
};
