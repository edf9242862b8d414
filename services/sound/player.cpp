#include <fcntl.h>
#include <pulse/simple.h>
#include <sndfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "services/own_thread.h"
#include "services/services.h"

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// How much is written at once, and how much the server keeps.
constexpr auto kPiece = 20ms;
constexpr pa_usec_t kHeld = std::chrono::microseconds(200ms).count();
/// A sound that comes later than this is useless.
constexpr auto kLatest = 2s;

struct Close {
  void operator()(SNDFILE* file) const { sf_close(file); }
  void operator()(pa_simple* stream) const { pa_simple_free(stream); }
};
template <class Type>
using Owned = std::unique_ptr<Type, Close>;

/// Null for what is missing, is no regular file, or holds no sound.
Owned<SNDFILE> openSound(const std::string& path, SF_INFO& info) {
  // A pipe must not make anybody wait.
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) return nullptr;
  struct stat status {};
  if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
    ::close(descriptor);
    return nullptr;
  }
  Owned<SNDFILE> file(sf_open_fd(descriptor, SFM_READ, &info, SF_TRUE));
  return info.frames > 0 ? std::move(file) : nullptr;
}

/// Null where no server takes a sound of this kind.
Owned<pa_simple> openStream(const SF_INFO& info) {
  if (info.channels > int{PA_CHANNELS_MAX}) return nullptr;
  const pa_sample_spec format{PA_SAMPLE_FLOAT32NE, static_cast<std::uint32_t>(info.samplerate),
                              static_cast<std::uint8_t>(info.channels)};
  if (pa_sample_spec_valid(&format) == 0) return nullptr;
  constexpr auto kUsual = static_cast<std::uint32_t>(-1);
  const pa_buffer_attr held{kUsual, static_cast<std::uint32_t>(pa_usec_to_bytes(kHeld, &format)),
                            kUsual, kUsual, kUsual};
  return Owned<pa_simple>(pa_simple_new(nullptr, "Listwright", PA_STREAM_PLAYBACK, nullptr, "Alert",
                                        &format, nullptr, &held, nullptr));
}

struct Request {
  std::string path;
  bool giveWay = false;  ///< plays nothing while another sound plays
  Clock::time_point asked = Clock::now();
};

/// Plays one sound at a time on a thread of its own, which runs while there is something to play.
class Player {
 public:
  void play(Request request);

 private:
  void run();
  void playToEnd(const Request& request);
  bool isReplaced();

  std::mutex mutex_;
  std::deque<Request> requests_;
  bool running_ = false;
};

void Player::play(Request request) {
  const std::lock_guard lock(mutex_);
  if (!request.giveWay) requests_.clear();
  requests_.push_back(std::move(request));
  if (running_) return;
  kvrnstep::services::startOwnThread([this] { run(); });
  running_ = true;
}

void Player::run() {
  std::unique_lock lock(mutex_);
  while (!requests_.empty()) {
    const Request request = std::move(requests_.front());
    requests_.pop_front();
    lock.unlock();
    try {
      playToEnd(request);
    } catch (const std::exception&) {
      // Without memory for it there is no sound.
    }
    lock.lock();
  }
  running_ = false;
}

void Player::playToEnd(const Request& request) {
  SF_INFO info{};
  const auto sound = openSound(request.path, info);
  if (sound == nullptr) return;
  const auto stream = openStream(info);
  if (stream == nullptr || Clock::now() - request.asked > kLatest) return;

  const auto frames = static_cast<sf_count_t>(info.samplerate * kPiece / 1s + 1);
  std::vector<float> samples(static_cast<std::size_t>(frames * info.channels));
  while (!isReplaced()) {
    const sf_count_t count = sf_readf_float(sound.get(), samples.data(), frames);
    if (count > 0) {
      const auto size = static_cast<std::size_t>(count * info.channels) * sizeof(float);
      if (pa_simple_write(stream.get(), samples.data(), size, nullptr) == 0) continue;
    }
    pa_simple_drain(stream.get(), nullptr);
    isReplaced();
    return;
  }
}

/// Forgets requests that give way to the sound that is playing.
bool Player::isReplaced() {
  const std::lock_guard lock(mutex_);
  while (!requests_.empty() && requests_.front().giveWay) requests_.pop_front();
  return !requests_.empty();
}

/// The one player of the process. It is never deleted, because its thread may wait for a server
/// when the process ends.
Player& thePlayer() {
  static auto* const player = std::make_unique<Player>().release();
  return *player;
}

}  // namespace

extern "C" [[gnu::visibility("default")]] void kvrnstepPlaySound(const char* path, int giveWay) {
  try {
    if (path != nullptr) thePlayer().play({path, giveWay != 0});
  } catch (const std::exception&) {
    // Without memory for it there is no sound.
  }
}
