// The save of one released waybill with its two postings, made again and again: each time the file and the
// card are first brought to where an operator has just filled the card.
#pragma once

#include "benchmarks/office.h"

#include <QDate>

namespace benchmarks {

class RepeatedSave {
  public:
    /// Saves once, so that what the engine reads once for a run has been read.
    RepeatedSave(Office& office, QDate day);
    /// Takes back what the last save has written, for good.
    ~RepeatedSave();
    RepeatedSave(const RepeatedSave&) = delete;
    RepeatedSave& operator=(const RepeatedSave&) = delete;

    /// Takes the save before it back, through that engine, and fills the card.
    void MakeReady(BareEngine& engine);
    void MakeReady() { MakeReady(ours_); }
    /// From the key of the command to the durable commit.
    void Save();

  private:
    void Undo(BareEngine& engine) const;

    Office& office_;
    BareEngine ours_;  ///< beneath the session's database
    QDate day_;
    QString counter_;  ///< of the journal, before the save
};

}  // namespace benchmarks
