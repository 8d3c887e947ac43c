// Saves one released waybill with its two postings repeatedly. Before each save the file and the card are
// restored to the state in which an operator has just filled in the card.
#pragma once

#include "benchmarks/office.h"

#include <QDate>

namespace benchmarks {

class RepeatedSave {
  public:
    /// Saves once, so that data that the engine reads once for a run is already cached.
    RepeatedSave(Office& office, QDate day);
    /// Undoes the last save and commits that.
    ~RepeatedSave();
    RepeatedSave(const RepeatedSave&) = delete;
    RepeatedSave& operator=(const RepeatedSave&) = delete;

    /// Undoes the previous save through that engine and fills in the card.
    void MakeReady(BareEngine& engine);
    void MakeReady() { MakeReady(ours_); }
    /// From the key of the command to the durable commit.
    void Save();

  private:
    void Undo(BareEngine& engine) const;

    Office& office_;
    BareEngine ours_;  ///< the engine of the session's database
    QDate day_;
    QString counter_;  ///< of the journal, before the save
};

}  // namespace benchmarks
