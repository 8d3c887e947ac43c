#include "app/history_groups.h"

#include "app/main_window.h"
#include "app/session.h"
#include "platform/dao/group_start.h"
#include "platform/system/seams.h"
#include "platform/text/dates.h"
#include "schema/history.h"

#include <algorithm>
#include <optional>
#include <sqlite3.h>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// A statement that stays prepared. A failing step is kept in `code` of the group's start.
class Kept {
  public:
    Kept(sqlite3* engine, const QByteArray& sql) : engine_(engine), sql_(sql) {}
    ~Kept() { sqlite3_finalize(statement_); }
    Kept(const Kept&) = delete;
    Kept& operator=(const Kept&) = delete;

    /// Prepares it at its first use.
    int Begin() {
        if (statement_) return SQLITE_OK;
        return sqlite3_prepare_v2(engine_, sql_.constData(), -1, &statement_, nullptr);
    }
    void Bind(int place, qint64 value) { sqlite3_bind_int64(statement_, place, value); }
    void Bind(int place, const QByteArray& text) {
        sqlite3_bind_text(statement_, place, text.constData(), static_cast<int>(text.size()),
                          SQLITE_TRANSIENT);
    }
    int Step() { return sqlite3_step(statement_); }
    qint64 Whole(int column) { return sqlite3_column_int64(statement_, column); }
    QByteArray Text(int column) {
        return QByteArray(reinterpret_cast<const char*>(sqlite3_column_text(statement_, column)));
    }
    int End() { return sqlite3_reset(statement_); }

  private:
    sqlite3* engine_;
    QByteArray sql_;
    sqlite3_stmt* statement_ = nullptr;
};

/// The oldest group of a mirror, and how it is removed.
struct Mirror {
    Mirror(sqlite3* engine, const QByteArray& name)
        : oldest(engine, "select N,At from " + name + " order by rowid limit 1"),
          removeUpTo(engine, "delete from " + name + " where rowid<coalesce((select rowid from " + name +
                                 " where N>?1 order by rowid limit 1),9223372036854775807)") {}
    Kept oldest, removeUpTo;
};

constexpr qint64 kSmallStep = 3600;  // seconds; a group keeps the time of the one before it

QDateTime TimeOf(const QByteArray& at) {
    return QDateTime::fromString(QString::fromUtf8(at), u"yyyy-MM-dd HH:mm:ss"_s);
}

QByteArray TextOf(const QDateTime& time) {
    return text::DateTimeText(time).toUtf8();
}

QByteArray CountStatement() {
    QByteArrayList counts;
    for (const schema::KeptTable& table : schema::KeptTables()) {
        const QByteArray name = table.Mirror();
        counts += "coalesce((select max(rowid) from " + name + ")-(select min(rowid) from " + name + ")+1,0)";
    }
    return "select " + counts.join('+');
}

class HistoryGroup : public dao::GroupStart {
  public:
    explicit HistoryGroup(sqlite3* engine)
        : engine_(engine),
          last_(engine, "select At,(select Ahead from HClock order by rowid desc limit 1) from HNow"),
          note_(engine, "update HNow set N=N+1,At=?1,Operator=?2,Command=?3"),
          step_(engine, "insert into HClock (N,Ahead) select N,?1 from HNow"),
          caughtUp_(engine, "update HClock set Ahead=?1 where rowid=(select max(rowid) from HClock)"),
          aheadOf_(engine, "select Ahead from HClock where N<=?1 order by rowid desc limit 1"),
          forget_(engine, "delete from HClock where N<(select max(N) from HClock where N<=?1)"),
          over_(engine, "update HNow set N=N+1,Operator=null,Command=null"),
          count_(engine, CountStatement()) {
        for (const schema::KeptTable& table : schema::KeptTables())
            mirrors_.push_back(std::make_unique<Mirror>(engine, table.Mirror()));
    }

    int Run() override {
        const int code = Note();
        return code == SQLITE_OK ? Trim() : code;
    }
    int End() override { return Do(over_); }

  private:
    struct Oldest {
        qint64 number;
        QByteArray at;
    };

    template <class... Values>
    static int Do(Kept& statement, const Values&... values) {
        if (const int code = statement.Begin(); code != SQLITE_OK) return code;
        int place = 0;
        (statement.Bind(++place, values), ...);
        statement.Step();
        return statement.End();
    }

    int Note() {
        if (const int code = last_.Begin(); code != SQLITE_OK) return code;
        const bool any = last_.Step() == SQLITE_ROW;
        const QByteArray lastAt = any ? last_.Text(0) : QByteArray();
        const qint64 before = any ? last_.Whole(1) : 0;
        ahead_ = before;
        if (const int code = last_.End(); code != SQLITE_OK) return code;
        now_ = sys::Now();
        QByteArray at = TextOf(now_);
        bool step = false;
        if (lastAt != at_) lastTime_ = TimeOf(lastAt);
        if (const QDateTime last = lastTime_; last.isValid()) {
            step = last.secsTo(now_) < -kSmallStep || last.daysTo(now_) > schema::kStepDays;
            if (!step && at < lastAt) at = lastAt;
            GoAhead(last.daysTo(now_));
        }
        const bool other = ahead_ != before;
        at_ = at;
        lastTime_ = at == lastAt ? lastTime_ : now_;
        const int code = Do(note_, at, OperatorName.toUtf8(), FormInFront().toUtf8());
        if (code != SQLITE_OK || !(step || other)) return code;
        return step ? Do(step_, ahead_) : Do(caughtUp_, ahead_);
    }

    /// A clock that was put back first catches up with what it was, so that a wrong date costs nothing of the
    /// history once it is right again.
    void GoAhead(qint64 days) {
        const qint64 caughtUp = std::clamp(days, qint64{0}, std::max(-ahead_, qint64{0}));
        ahead_ += caughtUp;
        days -= caughtUp;
        if (days < 0) ahead_ += days;
        if (days > schema::kStepDays) ahead_ += days - schema::kStepDays;
    }

    /// By the clock without steps.
    int Place(Oldest& oldest) {
        const QDateTime at = TimeOf(oldest.at);
        if (!at.isValid()) return SQLITE_OK;
        if (const int code = aheadOf_.Begin(); code != SQLITE_OK) return code;
        aheadOf_.Bind(1, oldest.number);
        const qint64 ahead = aheadOf_.Step() == SQLITE_ROW ? aheadOf_.Whole(0) : 0;
        oldest.at = TextOf(at.addDays(-ahead));
        return aheadOf_.End();
    }

    int Trim() {
        const HistoryLimits& limits = historyLimits();
        qint64 rows = 0;
        if (const int code = Count(limits.rows, rows); code != SQLITE_OK) return code;
        const QByteArray since = TextOf(now_.addDays(-ahead_).addYears(-limits.years));
        // Nothing becomes older than what was the oldest at the last look.
        if (rows <= limits.rows && !oldestAt_.isEmpty() && oldestAt_ >= since) return SQLITE_OK;
        qint64 removed = 0;
        while (true) {
            std::optional<Oldest> oldest;
            if (const int code = Find(oldest); code != SQLITE_OK) return code;
            oldestAt_.clear();
            if (!oldest) return SQLITE_OK;
            if (const int code = Place(*oldest); code != SQLITE_OK) return code;
            oldestAt_ = oldest->at;
            const bool tooMany = rows - removed > limits.rows;
            if (!tooMany && (oldest->at >= since || removed >= limits.oldAtOnce))
                return removed > 0 ? Do(forget_, oldest->number) : SQLITE_OK;
            if (const int code = Remove(oldest->number, removed); code != SQLITE_OK) return code;
        }
    }

    /// The kept rows, or more as long as that is within the limit. They are counted again when as many may
    /// have come as the limit leaves; what another program adds is seen then.
    int Count(qint64 limit, qint64& rows) {
        const qint64 changes = sqlite3_total_changes(engine_);
        rows = counted_ + changes - changesThen_;
        if (counted_ >= 0 && changes >= changesThen_ && rows <= limit) return SQLITE_OK;
        if (const int code = count_.Begin(); code != SQLITE_OK) return code;
        rows = count_.Step() == SQLITE_ROW ? count_.Whole(0) : 0;
        counted_ = rows;
        changesThen_ = changes;
        return count_.End();
    }

    int Find(std::optional<Oldest>& oldest) {
        for (const auto& mirror : mirrors_) {
            Kept& first = mirror->oldest;
            if (const int code = first.Begin(); code != SQLITE_OK) return code;
            if (first.Step() == SQLITE_ROW && (!oldest || first.Whole(0) < oldest->number))
                oldest = Oldest{first.Whole(0), first.Text(1)};
            if (const int code = first.End(); code != SQLITE_OK) return code;
        }
        return SQLITE_OK;
    }

    int Remove(qint64 upTo, qint64& removed) {
        for (const auto& mirror : mirrors_) {
            Kept& remove = mirror->removeUpTo;
            if (const int code = remove.Begin(); code != SQLITE_OK) return code;
            remove.Bind(1, upTo);
            const int before = sqlite3_total_changes(engine_);
            remove.Step();
            if (const int code = remove.End(); code != SQLITE_OK) return code;
            removed += sqlite3_total_changes(engine_) - before;
        }
        return SQLITE_OK;
    }

    sqlite3* engine_;
    Kept last_, note_, step_, caughtUp_, aheadOf_, forget_, over_, count_;
    std::vector<std::unique_ptr<Mirror>> mirrors_;
    QDateTime now_;  ///< of the group
    QByteArray at_;  ///< as written last, and the time that it says
    QDateTime lastTime_;
    qint64 counted_ = -1;  ///< rows, when they were counted last; the connection's changes then
    qint64 changesThen_ = 0;
    qint64 ahead_ = 0;     ///< of now_, in days
    QByteArray oldestAt_;  ///< by the clock without steps
};

bool KeepsHistory(sqlite3* engine) {
    return sqlite3_table_column_metadata(engine, nullptr, "HClock", "N", nullptr, nullptr, nullptr, nullptr,
                                         nullptr) == SQLITE_OK;
}

}  // namespace

HistoryLimits& historyLimits() {
    static HistoryLimits inUse;
    return inUse;
}

void NoteGroups() {
    dao::makeGroupStart() = [](sqlite3* engine) {
        return KeepsHistory(engine) ? std::make_unique<HistoryGroup>(engine) : nullptr;
    };
}
