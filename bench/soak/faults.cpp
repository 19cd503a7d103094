#include "soak/faults.h"

#include <map>

using namespace Qt::StringLiterals;

namespace {

const std::map<QString, QStringList>& Triggers() {
    static const QString card = u" UPDATE TimeCardHeader SET %1 WHERE TCID=new.TCID; END"_s;
    static const QString day =
        u" UPDATE TimeCardDetail SET %1 WHERE TCID=new.TCID AND Tanggal=new.Tanggal; END"_s;
    static const std::map<QString, QStringList> triggers{
        {u"arrivals"_s,
         {u"CREATE TRIGGER a AFTER INSERT ON TimeCardDetail WHEN new.TimeIN NOTNULL BEGIN"_s
          + day.arg(u"TimeIN=NULL"_s)}},
        {u"departures"_s,
         {u"CREATE TRIGGER a AFTER UPDATE OF TimeOUT ON TimeCardDetail BEGIN"_s
          + day.arg(u"TimeOUT=old.TimeOUT"_s)}},
        {u"statuses"_s,
         {u"CREATE TRIGGER a AFTER UPDATE OF Status ON TimeCardHeader WHEN new.Status IN ('TL','PC') BEGIN"_s
          + card.arg(u"Status='A'"_s)}},
        {u"remarks"_s,
         {u"CREATE TRIGGER a AFTER UPDATE OF Keterangan ON TimeCardHeader BEGIN"_s
          + card.arg(u"Keterangan=old.Keterangan"_s)}},
        {u"roster"_s,
         {u"CREATE TRIGGER a AFTER INSERT ON ShiftEmployee BEGIN DELETE FROM ShiftEmployee "
          "WHERE NIP=new.NIP AND Tgl=new.Tgl; END"_s,
          u"CREATE TRIGGER b AFTER UPDATE OF ShiftCode ON ShiftEmployee BEGIN UPDATE ShiftEmployee "
          "SET ShiftCode=old.ShiftCode WHERE NIP=new.NIP AND Tgl=new.Tgl; END"_s}},
        {u"results"_s,
         {u"CREATE TRIGGER a AFTER UPDATE OF NormalHours ON TimeCardHeader BEGIN"_s
          + card.arg(u"NormalHours=old.NormalHours, NormalAmount=old.NormalAmount"_s)}},
        {u"errors"_s,
         {u"CREATE TRIGGER a BEFORE UPDATE OF Status ON TimeCardHeader WHEN new.Status='OUT' BEGIN "
          "SELECT RAISE(ABORT,'spoiled'); END"_s}},
        {u"memory"_s, {}},
        {u"window"_s, {}},
    };
    return triggers;
}

} // namespace

QStringList FaultNames() {
    QStringList names;
    for (const auto& [name, statements] : Triggers())
        names << name;
    return names;
}

void Spoil(Connection& connection, const QString& fault) {
    for (const QString& statement : Triggers().at(fault))
        connection.ExecuteNative(statement);
}
