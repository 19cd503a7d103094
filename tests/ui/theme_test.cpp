#include "ui/theme.h"

#include "core/status_codes.h"
#include "ui/icons.h"

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

Triple Linear(const QColor& colour) {
    const auto linear = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return {linear(colour.redF()), linear(colour.greenF()), linear(colour.blueF())};
}

Triple Times(const Matrix& matrix, const Triple& v) {
    Triple product{};
    for (size_t row = 0; row < 3; ++row)
        product[row] = matrix[row][0] * v[0] + matrix[row][1] * v[1] + matrix[row][2] * v[2];
    return product;
}

/// Of linear light, under daylight.
Triple CieLab(Triple light) {
    for (double& part : light)
        part = std::clamp(part, 0.0, 1.0);
    constexpr Matrix toXyz{{{0.4124, 0.3576, 0.1805}, {0.2126, 0.7152, 0.0722}, {0.0193, 0.1192, 0.9505}}};
    const Triple xyz = Times(toXyz, light);
    const auto f = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116; };
    const double x = f(xyz[0] / 0.95047);
    const double y = f(xyz[1]);
    const double z = f(xyz[2] / 1.08883);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double Contrast(const QColor& one, const QColor& other) {
    const auto luminance = [](const QColor& colour) {
        const Triple light = Linear(colour);
        return 0.2126 * light[0] + 0.7152 * light[1] + 0.0722 * light[2] + 0.05;
    };
    const double ratio = luminance(one) / luminance(other);
    return ratio < 1 ? 1 / ratio : ratio;
}

} // namespace

TEST(Theme, StatusesAreToldApartByTheirLightnessAloneAndByThoseWhoDoNotSeeAllColours) {
    // What is left of linear light to those who lack one kind of cones.
    const std::pair<const char*, Matrix> eyes[] = {{"all", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}},
                                                   {"no red",
                                                    {{{0.152286, 1.052583, -0.204868},
                                                      {0.114503, 0.786281, 0.099216},
                                                      {-0.003882, -0.048116, 1.051998}}}},
                                                   {"no green",
                                                    {{{0.367322, 0.860646, -0.227968},
                                                      {0.280085, 0.672501, 0.047413},
                                                      {-0.011820, 0.042940, 0.968881}}}},
                                                   {"no blue",
                                                    {{{1.255528, -0.076749, -0.178779},
                                                      {-0.078411, 0.930809, 0.147602},
                                                      {0.004733, 0.691367, 0.303900}}}}};
    using namespace CardStatus;
    const QStringView statuses[] = {In, Out, OnBreak, LeftEarly, OnDuty, Sick, Excused, OnLeave, Holiday};
    for (const QStringView status : statuses) {
        const auto colours = Theme::LookColours(LookOfStatus(status));
        ASSERT_TRUE(colours && IsChip(LookOfStatus(status))) << status.toString().toStdString();
        EXPECT_GE(Contrast(colours->fill, colours->text), 4.5) << status.toString().toStdString();
        for (const QStringView other : statuses) {
            if (other == status)
                break;
            for (const auto& [eye, matrix] : eyes) {
                const Triple one = CieLab(Times(matrix, Linear(colours->fill)));
                const Triple two =
                    CieLab(Times(matrix, Linear(Theme::LookColours(LookOfStatus(other))->fill)));
                const double apart = std::hypot(one[0] - two[0], one[1] - two[1], one[2] - two[2]);
                EXPECT_GE(apart, 10) << eye << status.toString().toStdString()
                                     << other.toString().toStdString();
                if (eye == eyes[0].first) {
                    EXPECT_GE(std::abs(one[0] - two[0]), 5) << status.toString().toStdString();
                }
            }
        }
    }
}

TEST(Theme, TextFieldsAndFocusStandOutFromTheirGround) {
    const std::tuple<QStringView, QStringView, double> pairs[] = {
        {u"outline", u"card", 3},       {u"outline", u"window", 3}, {u"accent", u"card", 3},
        {u"accent", u"window", 3},      {u"failed", u"card", 3},    {u"failed", u"header", 3},
        {u"text", u"selection", 4.5},   {u"quiet", u"window", 4.5}, {u"quiet", u"header", 4.5},
        {u"on-accent", u"accent", 4.5}, {u"on-accent", u"in", 4.5}, {u"on-accent", u"out", 4.5},
        {u"band-text", u"band", 4.5}};
    for (const auto& [one, other, least] : pairs)
        EXPECT_GE(Contrast(Theme::Tone(one), Theme::Tone(other)), least) << one.toString().toStdString();
}

TEST(Icons, EveryPictureThatAWindowNamesIsDrawn) {
    static const QRegularExpression name(u"name=\"picture\"[^>]*><string[^>]*>([a-z]+)<"_s);
    QSet<QString> named;
    for (QDirIterator forms(QStringLiteral(SOURCE_FOLDER), {u"*.ui"_s}, QDir::Files,
                            QDirIterator::Subdirectories);
         forms.hasNext();) {
        QFile form(forms.next());
        ASSERT_TRUE(form.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(form.readAll());
        for (const auto& match : name.globalMatch(text))
            named.insert(match.captured(1));
    }
    EXPECT_GT(named.size(), 5);
    for (const QString& picture : named) {
        const QImage drawn =
            Icon(picture, Qt::red).pixmap(40).toImage().convertToFormat(QImage::Format_Alpha8);
        EXPECT_NE(drawn.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).bits()[0], 0)
            << picture.toStdString();
    }
}
