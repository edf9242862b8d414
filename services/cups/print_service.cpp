#include <cups/cups.h>
#include <pthread.h>

#include <csignal>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

#include "services/services.h"

namespace {

constexpr const char* kTitle = "Listwright";

/// A scheduler on this machine is reached at once or not at all; libcups itself would try for 30 s.
constexpr int kConnectMilliseconds = 2000;

/// The system may start the scheduler only when it is called, so its first answer can take a while.
constexpr double kAnswerSeconds = 5.0;

struct Release {
  void operator()(http_t* connection) const { httpClose(connection); }
  void operator()(cups_dest_t* printer) const { cupsFreeDests(1, printer); }
  void operator()(cups_dinfo_t* abilities) const { cupsFreeDestInfo(abilities); }
};
template <class Type>
using Owned = std::unique_ptr<Type, Release>;

/// The text with LF line ends. The scheduler's text filter takes a CR for a return to the first
/// column, and queues without a filter are set up for LF, because every other program sends it.
std::string documentOf(std::string_view text) {
  std::string document;
  document.reserve(text.size() + 1);
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text.substr(at, 2) != "\r\n") document += text[at];
  }
  return document += '\n';
}

Owned<http_t> connected() {
  Owned<http_t> connection(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC,
                                        cupsEncryption(), 1, kConnectMilliseconds, nullptr));
  const auto giveUp = [](http_t*, void*) { return 0; };
  if (connection != nullptr) httpSetTimeout(connection.get(), kAnswerSeconds, giveUp, nullptr);
  return connection;
}

/// Plain text without a named character set is UTF-8 to the scheduler.
bool sent(http_t* connection, cups_dest_t* printer, cups_dinfo_t* abilities, int job,
          const std::string& document) {
  return cupsStartDestDocument(connection, printer, abilities, job, kTitle, CUPS_FORMAT_TEXT, 0,
                               nullptr, 1) == HTTP_STATUS_CONTINUE &&
         cupsWriteRequestData(connection, document.data(), document.size()) ==
             HTTP_STATUS_CONTINUE &&
         cupsFinishDestDocument(connection, printer, abilities) < IPP_STATUS_REDIRECTION_OTHER_SITE;
}

bool printed(const std::string& document) {
  // libcups would ask for one on the terminal of the host.
  const cups_password_cb2_t noPassword = [](const char*, http_t*, const char*, const char*,
                                            void*) -> const char* { return nullptr; };
  cupsSetPasswordCB2(noPassword, nullptr);
  const Owned<http_t> connection = connected();
  if (connection == nullptr) return false;
  const Owned<cups_dest_t> printer(cupsGetNamedDest(connection.get(), nullptr, nullptr));
  if (printer == nullptr) return false;
  const Owned<cups_dinfo_t> abilities(cupsCopyDestInfo(connection.get(), printer.get()));
  if (abilities == nullptr) return false;

  int job = 0;
  // The printer's options are those that the user saved for it.
  const ipp_status_t created =
      cupsCreateDestJob(connection.get(), printer.get(), abilities.get(), &job, kTitle,
                        printer->num_options, printer->options);
  if (created >= IPP_STATUS_REDIRECTION_OTHER_SITE || job <= 0) return false;
  if (sent(connection.get(), printer.get(), abilities.get(), job, document)) return true;
  // Without its document the job would hold up the queue.
  cupsCancelDestJob(connection.get(), printer.get(), job);
  return false;
}

/// As long as it exists, neither this thread nor those that it starts get signals.
class SignalsKeptOff {
 public:
  SignalsKeptOff() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before_);
  }
  ~SignalsKeptOff() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  SignalsKeptOff(const SignalsKeptOff&) = delete;
  SignalsKeptOff& operator=(const SignalsKeptOff&) = delete;

 private:
  sigset_t before_{};
};

/// The host's signal handlers expect the host's threads.
template <class Work>
std::thread startedWithoutSignals(Work work) {
  const SignalsKeptOff keptOff;
  return std::thread(work);
}

}  // namespace

/// libcups keeps its connection, its settings and the way it asks for a password by thread: in a
/// thread of our own they are not those of a host that prints too. When it is first used it has the
/// whole process ignore SIGPIPE. That is left so, because the host's own use of it may rely on it.
extern "C" [[gnu::visibility("default")]] bool kvrnstepPrint(const char* text, std::size_t length) {
  try {
    const std::string document = documentOf({text, length});
    bool done = false;
    startedWithoutSignals([&] { done = printed(document); }).join();
    return done;
  } catch (...) {
    return false;
  }
}
