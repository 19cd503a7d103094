#include "core/shown_figure.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ShownFigure, IsPaintedForReadingAndLeavesWhatIsNoSuchFigure) {
    const struct {
        Figure figure;
        QString text;
        QString shown;
    } cases[] = {
        {Figure::Hours, u"8"_s, u"8.00"_s},
        {Figure::Hours, u"8.2"_s, u"8.20"_s},
        {Figure::Hours, u"-0.05"_s, u"-0.05"_s},
        {Figure::Hours, u"8.125"_s, u"8.125"_s},
        {Figure::Hours, u"8 jam"_s, u"8 jam"_s},
        {Figure::Amount, u"999"_s, u"999"_s},
        {Figure::Amount, u"-175000"_s, u"-175,000"_s},
        {Figure::Amount, u"1234567.5"_s, u"1,234,567.5"_s},
        {Figure::Amount, u""_s, u""_s},
        {Figure::Flag, u"True"_s, u"✓"_s},
        {Figure::Flag, u"False"_s, u"–"_s},
        {Figure::Flag, u""_s, u""_s},
        {Figure::Plain, u"175000"_s, u"175000"_s},
    };
    for (const auto& [figure, text, shown] : cases)
        EXPECT_EQ(ShownFigure(figure, text), shown) << text.toStdString();
}
