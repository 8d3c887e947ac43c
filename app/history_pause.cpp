#include "app/history_pause.h"

#include "platform/errors.h"
#include "schema/history.h"

using namespace Qt::StringLiterals;

HistoryPause::HistoryPause(dao::Database& db, const QStringList& tables) : db_(db) {
    QStringList names;
    for (const QString& table : tables) {
        const schema::KeptTable* const kept = schema::FindKept(table.toUtf8());
        if (!kept) continue;
        mirrors_ += QString::fromLatin1(kept->Mirror());
        auto rows =
            db_.ReadEngine(u"select name,sql from sqlite_master where type='trigger' and name in ('"_s +
                           QString::fromLatin1(kept->Triggers().join("','")) + u"') order by rowid"_s);
        for (; !rows.Eof(); rows.MoveNext()) {
            names += rows.Fields(0).Text();
            triggers_ += rows.Fields(1).Text();
        }
    }
    // An object that raises while it is made has no destructor run.
    QStringList dropped;
    try {
        for (qsizetype i = 0; i < names.size(); ++i) {
            db_.ExecuteEngine(u"drop trigger "_s + names[i]);
            dropped += triggers_[i];
        }
    } catch (const PlatformError&) {
        triggers_ = dropped;
        try {
            Resume();
        } catch (const PlatformError&) {
            // As in the destructor. The first failure is the one that counts.
        }
        throw;
    }
}

HistoryPause::~HistoryPause() {
    try {
        Resume();
    } catch (const PlatformError&) {
        // The group is lost, and the triggers are there. Else the next start creates them.
    }
}

void HistoryPause::Forget() {
    for (const QString& mirror : mirrors_) db_.ExecuteEngine(u"delete from "_s + mirror);
    Resume();
}

void HistoryPause::Resume() {
    while (!triggers_.isEmpty()) db_.ExecuteEngine(triggers_.takeFirst());
}
