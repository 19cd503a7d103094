#include "database/wall_time.h"

#include "support/test_company.h"

using namespace Qt::StringLiterals;

TEST(WallTime, StoredFormsReadBackAndOtherTextsDoNot) {
    for (const auto& text : {u"2026-11-22 07:58:12"_s, u"1899-12-30 00:00:00"_s, u"2028-02-29 23:59:59"_s}) {
        const auto time = ReadStored(text);
        ASSERT_TRUE(time) << text.toStdString();
        EXPECT_EQ(StoredTime(*time), text);
    }
    EXPECT_EQ(StoredDay(DayOf(*ReadStored(u"2026-11-22"))), u"2026-11-22"_s);
    for (const auto& text :
         {u"2026-02-29"_s, u"2026-13-01"_s, u"2026-11-22 24:00:00"_s, u"2026-11-22T07:58:12"_s,
          u"22-11-2026"_s, u"2026-1-2"_s, u""_s, u"+026-11-22"_s})
        EXPECT_FALSE(ReadStored(text)) << text.toStdString();
}
