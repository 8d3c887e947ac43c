// Rows of a SELECT with a cursor, read by ordinal from 0 or by name (case-blind).
//
// A field reads as text: numbers in general text (5, not 5.0), booleans as 0 or -1, dates as stored.
// Raises RuntimeError for a field that is not there (在此集合中找不到该项目) and for reading where no row is.
#pragma once

#include <QString>
#include <QStringView>

#include <memory>

namespace dao {

/// Snapshot: a copy of the rows at that moment. Dynaset: can be written to with Edit, SetValue, Update.
/// ForwardOnly: rows that are read once and not copied, from the first on by MoveNext; the other moves and
/// RecordCount raise RuntimeError. Until it is closed or behind its last row its statement runs: nothing is
/// to be written meanwhile, and where the file is closed, reading raises DatabaseError.
enum class RecordsetType { Dynaset = 2, Snapshot = 4, ForwardOnly = 8 };

struct RecordsetData;

/// A field of the current row. Valid until the cursor moves.
class Field {
  public:
    bool IsNull() const;
    /// The value as text; "" for null.
    QString Text() const;
    /// The value as a number; a text by its leading number; 0 for null.
    double Number() const;

  private:
    friend class Recordset;
    Field(const RecordsetData* data, int column) : data_(data), column_(column) {}
    const RecordsetData* data_;
    int column_;
};

class Recordset {
  public:
    explicit Recordset(std::unique_ptr<RecordsetData> data);
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    ~Recordset();

    /// Behind the last row; in an empty set from the beginning.
    bool Eof() const;
    /// The three moves raise RuntimeError where there is no row to move from or to, and drop what was set and
    /// not updated.
    void MoveFirst();
    void MoveNext();
    void MoveLast();
    /// 0 for an empty set; the true number only after MoveLast, 1 before it; not for a forward-only set.
    int RecordCount() const;

    int FieldCount() const;
    /// The name of a field as the statement gives it. Raises RuntimeError for one that is not there.
    QString FieldName(int ordinal) const;
    Field Fields(int ordinal) const;
    Field Fields(QStringView name) const;

    /// Changing the current row of a dynaset of one table: Edit, SetValue for each field, Update, which
    /// writes. Out of this order, in a set that is no dynaset, and for a value that is infinite or no number
    /// they raise RuntimeError; Update raises DatabaseError too.
    void Edit();
    void SetValue(QStringView name, double value);
    void Update();

    /// Lets go of the rows; every later call raises RuntimeError.
    void Close();

  private:
    std::unique_ptr<RecordsetData> data_;
};

}  // namespace dao
