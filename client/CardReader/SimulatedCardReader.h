#pragma once

#include <CardReader/CardReaderExport.h>

#include <QString>

/// What happens at the simulated card reader. Without any of these calls somebody puts a new card on it again
/// and again, about every second time that it is asked. One state a process; user-interface thread.
namespace CardReader::Simulation {

/// As at the start of the process.
CARDREADER_EXPORT void Reset();
/// No cards but those of PutCard from now on.
CARDREADER_EXPORT void StopOwnCards();
/// The next card; several are read one after the other. Any text, also one that no card would have.
CARDREADER_EXPORT void PutCard(const QString& sCardNo);
/// Unplugged, an open reader is lost.
CARDREADER_EXPORT void SetPlugged(bool bPlugged);
CARDREADER_EXPORT void SetOpenFails(bool bFails);

/// How many readers are open.
CARDREADER_EXPORT int GetOpenCount();
/// How often a reader gave its success prompt.
CARDREADER_EXPORT int GetPromptCount();
/// How often a card was asked for.
CARDREADER_EXPORT int GetReadCount();

} // namespace CardReader::Simulation
