// Ipopt's output (and Bonmin's, which prints through an Ipopt Journalist)
// into the library's log: a Journal that cuts what it receives into lines
// and hands each to the log sink.  Nothing reaches stdout.
#pragma once

#include <IpJournalist.hpp>

#include <cstdarg>
#include <string>

#include "engine/settings.h"

namespace klo::engine {

class SinkJournal : public Ipopt::Journal {
 public:
  // Lines go to s.log; the journal passes what Ipopt prints at the level
  // our log level maps to (ipoptPrintLevel).
  explicit SinkJournal(const Settings& s);
  ~SinkJournal() override;

 protected:
  void PrintImpl(Ipopt::EJournalCategory category, Ipopt::EJournalLevel level,
                 const char* str) override;
  void PrintfImpl(Ipopt::EJournalCategory category, Ipopt::EJournalLevel level, const char* pformat,
                  va_list ap) override;
  void FlushBufferImpl() override;

 private:
  void take(const char* text);

  const Settings& s_;
  std::string pending_;  // text after the last newline
};

// Ipopt's print level for our log level: 0 none, 1 the iteration summary
// (Ipopt's default, 5), more for higher levels.
int ipoptPrintLevel(int logLevel);

// Adds a SinkJournal to jnlst when the log is on (level > 0 and a sink);
// with the log off nothing is added and Ipopt prints nowhere.
void addSinkJournal(Ipopt::Journalist& jnlst, const Settings& s);

}  // namespace klo::engine
