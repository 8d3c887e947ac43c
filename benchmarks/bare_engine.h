// A minimal wrapper of the engine's own C interface: the baseline of every measurement. A failure ends the
// run with the engine's error message.
#pragma once

#include <QByteArray>
#include <QString>

#include <initializer_list>
#include <sqlite3.h>

namespace benchmarks {

/// RAII prepared statement: the constructor prepares the text, the destructor finalizes it.
class BareStatement {
  public:
    BareStatement(sqlite3* engine, const QByteArray& text);
    ~BareStatement();
    BareStatement(const BareStatement&) = delete;
    BareStatement& operator=(const BareStatement&) = delete;

    /// True while there is a row.
    bool Step();
    void Reset();
    void Bind(int place, double value);
    void Bind(int place, sqlite3_int64 value);
    void Bind(int place, const QByteArray& value);
    /// Binds the texts to the parameters from 1 on, keeps what is bound already, steps and resets.
    void Insert(std::initializer_list<QByteArray> texts);

    int Columns() const;
    bool IsNull(int column) const;
    bool IsText(int column) const;
    double Number(int column) const;
    sqlite3_int64 Whole(int column) const;
    QString Text(int column) const;

  private:
    sqlite3* engine_;
    sqlite3_stmt* statement_ = nullptr;
};

/// A company's data file, opened with the same settings as the program uses.
class BareEngine {
  public:
    explicit BareEngine(const QString& path);
    /// An engine that is already open and that somebody else owns.
    explicit BareEngine(sqlite3* engine) : engine_(engine), own_(false) {}
    ~BareEngine();
    BareEngine(const BareEngine&) = delete;
    BareEngine& operator=(const BareEngine&) = delete;

    void Run(const QByteArray& text);
    QString Answer(const QByteArray& select);
    /// The sum of the numeric fields `from` to `to` - 1 of the first row.
    double SumOfRow(const QByteArray& select, int from, int to);
    sqlite3* Handle() const { return engine_; }

  private:
    sqlite3* engine_ = nullptr;
    bool own_ = true;
};

}  // namespace benchmarks
