#include <cups/cups.h>

#include <chrono>
#include <future>
#include <memory>
#include <string>
#include <string_view>

#include "services/own_thread.h"
#include "services/services.h"

namespace {

constexpr const char* kTitle = "Listwright";

/// A scheduler on this machine is reached at once or not at all; libcups itself would try for 30 s.
constexpr int kConnectMilliseconds = 2000;

/// The system may start the scheduler only when it is called, so its first answer can take a while.
constexpr double kAnswerSeconds = 5.0;

/// The time for the whole job, because a scheduler may send a byte now and then.
using Clock = std::chrono::steady_clock;
constexpr auto kLongest = std::chrono::seconds(6);

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

bool printed(const std::string& document, Clock::time_point deadline) {
  // Without this libcups would ask for a password on the terminal of the host.
  const cups_password_cb2_t noPassword = [](const char*, http_t*, const char*, const char*,
                                            void*) -> const char* { return nullptr; };
  cupsSetPasswordCB2(noPassword, nullptr);
  const Owned<http_t> connection = connected();
  if (connection == nullptr) return false;
  const Owned<cups_dest_t> printer(cupsGetNamedDest(connection.get(), nullptr, nullptr));
  if (printer == nullptr) return false;
  const Owned<cups_dinfo_t> abilities(cupsCopyDestInfo(connection.get(), printer.get()));
  // The caller waits until this time at most.
  const auto inTime = [deadline] { return Clock::now() < deadline; };
  if (abilities == nullptr || !inTime()) return false;

  int job = 0;
  // The printer's options are those that the user saved for it.
  const ipp_status_t created =
      cupsCreateDestJob(connection.get(), printer.get(), abilities.get(), &job, kTitle,
                        printer->num_options, printer->options);
  if (created >= IPP_STATUS_REDIRECTION_OTHER_SITE || job <= 0) return false;
  if (inTime() && sent(connection.get(), printer.get(), abilities.get(), job, document))
    return true;
  // Without its document the job would hold up the queue.
  cupsCancelDestJob(connection.get(), printer.get(), job);
  return false;
}

}  // namespace

/// libcups has a connection, settings and a way to ask for passwords for each thread. A thread of
/// our own leaves those of the host alone. When libcups is first used it makes the whole process
/// ignore SIGPIPE. That is not undone, because the host may use libcups too and rely on it.
extern "C" [[gnu::visibility("default")]] bool kvrnstepPrint(const char* text, std::size_t length) {
  try {
    const auto deadline = Clock::now() + kLongest;
    std::packaged_task<bool()> task(
        [document = documentOf({text, length}), deadline] { return printed(document, deadline); });
    std::future<bool> done = task.get_future();
    kvrnstep::services::startOwnThread(std::move(task));
    return done.wait_until(deadline) == std::future_status::ready && done.get();
  } catch (...) {
    return false;
  }
}
