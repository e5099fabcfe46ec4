#include "engine/ipopt/ipopt_journal.h"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace klo::engine {

SinkJournal::SinkJournal(const Settings& s)
    : Ipopt::Journal("klo", static_cast<Ipopt::EJournalLevel>(ipoptPrintLevel(s.logLevel))),
      s_(s) {}

SinkJournal::~SinkJournal() {
  if (!pending_.empty() && s_.log) s_.log(pending_);
}

void SinkJournal::PrintImpl(Ipopt::EJournalCategory, Ipopt::EJournalLevel, const char* str) {
  take(str);
}

void SinkJournal::PrintfImpl(Ipopt::EJournalCategory, Ipopt::EJournalLevel, const char* pformat,
                             va_list ap) {
  va_list copy;
  va_copy(copy, ap);
  char small[512];
  const int len = std::vsnprintf(small, sizeof small, pformat, ap);
  if (len < 0) {
    va_end(copy);
    return;
  }
  if (static_cast<size_t>(len) < sizeof small) {
    va_end(copy);
    take(small);
    return;
  }
  std::vector<char> big(static_cast<size_t>(len) + 1);
  std::vsnprintf(big.data(), big.size(), pformat, copy);
  va_end(copy);
  take(big.data());
}

void SinkJournal::FlushBufferImpl() {}

void SinkJournal::take(const char* text) {
  pending_ += text;
  std::string::size_type from = 0, nl;
  while ((nl = pending_.find('\n', from)) != std::string::npos) {
    if (s_.log) s_.log(pending_.substr(from, nl - from));
    from = nl + 1;
  }
  pending_.erase(0, from);
}

int ipoptPrintLevel(int logLevel) {
  if (logLevel <= 0) return Ipopt::J_NONE;
  return std::min(static_cast<int>(Ipopt::J_ALL), Ipopt::J_ITERSUMMARY + logLevel - 1);
}

void addSinkJournal(Ipopt::Journalist& jnlst, const Settings& s) {
  if (s.logLevel <= 0 || !s.log) return;
  Ipopt::SmartPtr<Ipopt::Journal> j = new SinkJournal(s);
  jnlst.AddJournal(j);
}

}  // namespace klo::engine
