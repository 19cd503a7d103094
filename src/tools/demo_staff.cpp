#include "tools/demo_staff.h"

#include "core/status_codes.h"
#include "tools/demo_random.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 24> MenNames{u"Agus",  u"Budi",   u"Joko",  u"Eko",   u"Dedi",  u"Hendra",
                                               u"Rudi",  u"Slamet", u"Andi",  u"Bayu",  u"Dimas", u"Fajar",
                                               u"Galih", u"Iwan",   u"Yusuf", u"Rizki", u"Tono",  u"Wahyu",
                                               u"Arif",  u"Made",   u"Asep",  u"Ujang", u"Yohan", u"Ilham"};
constexpr std::array<QStringView, 24> WomenNames{u"Siti",  u"Dewi",   u"Sri",   u"Rina",  u"Ani",   u"Wati",
                                                 u"Lilis", u"Fitri",  u"Nur",   u"Ratna", u"Maya",  u"Indah",
                                                 u"Yuni",  u"Endang", u"Tuti",  u"Novi",  u"Ayu",   u"Lina",
                                                 u"Rini",  u"Ketut",  u"Putri", u"Tika",  u"Maria", u"Diah"};
constexpr std::array<QStringView, 29> FamilyNames{
    u"Santoso",    u"Wijaya",  u"Susanto",  u"Hidayat",    u"Kusuma",  u"Pratama", u"Saputra", u"Nugroho",
    u"Setiawan",   u"Siregar", u"Nasution", u"Simatupang", u"Lubis",   u"Halim",   u"Gunadi",  u"Rahman",
    u"Firmansyah", u"Hakim",   u"Wibowo",   u"Purnomo",    u"Suryadi", u"Hartono", u"Maulana", u"Permana",
    u"Utomo",      u"Harahap", u"Tanjung",  u"Mulyadi",    u"Ramadhan"};

/// A place in the company; employees are spread over these in turn. Money in rupiah.
struct Post {
    QStringView dept;
    QStringView divisi;
    QStringView empType;
    WorkPlan plan;
    int crew;
    int leastPay;
    int mostPay;
    int payStep;
    int mealAllowance;
};
constexpr std::array<Post, 10> Posts{{
    {u"PROD", u"A", PayType::Daily, WorkPlan::Crew, 0, 150'000, 195'000, 5'000, 15'000},
    {u"ADM", u"K", u"BLN", WorkPlan::Office, 0, 4'800'000, 7'500'000, 50'000, 20'000},
    {u"PROD", u"B", PayType::Daily, WorkPlan::Crew, 1, 150'000, 195'000, 5'000, 15'000},
    {u"GUD", u"G", PayType::Daily, WorkPlan::Warehouse, 0, 145'000, 180'000, 5'000, 15'000},
    {u"PROD", u"C", PayType::Daily, WorkPlan::Crew, 2, 150'000, 195'000, 5'000, 15'000},
    {u"KEU", u"K", u"BLN", WorkPlan::Office, 0, 5'500'000, 9'000'000, 50'000, 20'000},
    {u"QC", u"K", u"BLN", WorkPlan::Office, 0, 5'000'000, 7'000'000, 50'000, 20'000},
    {u"PROD", u"A", PayType::Daily, WorkPlan::Crew, 0, 150'000, 195'000, 5'000, 15'000},
    {u"MNT", u"T", u"BLN", WorkPlan::Crew, 1, 4'900'000, 6'800'000, 50'000, 17'500},
    {u"GUD", u"G", PayType::Daily, WorkPlan::Warehouse, 0, 145'000, 180'000, 5'000, 15'000},
}};

/// Hours of work that a day's pay and a month's pay are divided by for the overtime rate.
constexpr double HoursPerDay = 7;
constexpr double HoursPerMonth = 173;

constexpr int PortraitsOfEach = 4;
constexpr int IndexOfMissingPhoto = 4;

/// One of every two neighbours, now the first, now the second, so that no post is left to men or women.
bool IsWoman(int index) {
    return (index + index / static_cast<int>(Posts.size())) % 2 == 1;
}

/// Differs for every index below 1392; from there on names return with a letter in the middle.
QString NameOf(int index) {
    const int person = index / 2;
    const int round = person / static_cast<int>(MenNames.size());
    const auto first = static_cast<size_t>(person) % MenNames.size();
    const int family = person * 7 + round + (IsWoman(index) ? 11 : 0);
    const auto last = static_cast<size_t>(family) % FamilyNames.size();
    const int repeat = round / static_cast<int>(FamilyNames.size());
    QString middle = u" "_s;
    if (repeat > 0)
        middle += QChar(u'A' + (repeat - 1) % 26) + u". "_s;
    return (IsWoman(index) ? WomenNames : MenNames)[first].toString() + middle + FamilyNames[last].toString();
}

QString PhotoOf(int index) {
    if (index % 3 == 2)
        return {};
    const int portrait = index / 2 % PortraitsOfEach + 1;
    return u"photos/%1-%2.gif"_s.arg(IsWoman(index) ? u"wanita"_s : u"pria"_s).arg(portrait);
}

DemoEmployee EmployeeAt(int index, int digits) {
    const Post& post = Posts[static_cast<size_t>(index) % Posts.size()];
    DemoEmployee employee;
    employee.number = index + 1;
    employee.nip = QString::number(employee.number).rightJustified(digits, u'0');
    employee.nama = NameOf(index);
    employee.dept = post.dept.toString();
    employee.divisi = post.divisi.toString();
    employee.pathImage = PhotoOf(index);
    employee.empType = post.empType.toString();
    employee.plan = post.plan;
    employee.crew = post.crew;

    DemoRandom random(static_cast<std::uint64_t>(employee.number));
    const int pay =
        post.leastPay + post.payStep * random.Between(0, (post.mostPay - post.leastPay) / post.payStep);
    const double hours = post.empType == PayType::Daily ? HoursPerDay : HoursPerMonth;
    employee.gp = pay;
    employee.rateOT = static_cast<double>(static_cast<int>(pay / hours / 100) * 100);
    employee.tMakan = post.mealAllowance;
    return employee;
}

} // namespace

std::vector<DemoEmployee> MakeDemoStaff(int count) {
    const int digits = std::max(4, static_cast<int>(QString::number(count).size()));
    std::vector<DemoEmployee> staff;
    staff.reserve(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i)
        staff.push_back(EmployeeAt(i, digits));
    if (!staff.empty())
        staff[static_cast<size_t>(std::min(IndexOfMissingPhoto, count - 1))].pathImage =
            u"photos/belum-ada.gif"_s;
    return staff;
}
