#include <QAbstractEventDispatcher>
#include <QAudioDevice>
#include <QAudioSink>
#include <QBuffer>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QMediaDevices>
#include <QThread>
#include <QTimer>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include "services/services.h"
#include "sound_file.h"

namespace {

using namespace std::chrono_literals;
using kvrnstep::sound::SoundFile;

constexpr auto kTick = 20ms;
constexpr auto kBuffer = 200ms;
constexpr auto kSettle = 100ms;
/// A server that does not answer must not keep the process from ending.
constexpr auto kLongestStop = 2s;

struct Request {
  std::string path;
  bool giveWay = false;  ///< plays nothing while another sound plays
};

/// Plays one sound at a time on a thread of its own. So nobody waits for the sound server, and a
/// sound is heard to its end when the thread that asked for it runs no events any more.
class Player : public QThread {
 public:
  void play(Request request);
  /// Ends what is playing and the thread; a later sound starts it again.
  void stop();

 protected:
  void run() override;

 private:
  void playToEnd(const Request& request);
  bool isReplaced();

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Request> requests_;
  bool stopping_ = false;
};

/// The one player of the process.
Player& thePlayer();

thread_local bool isPlayerThread = false;
QtMessageHandler othersHandler = nullptr;

/// What goes wrong with a sound is silent; everybody else's messages go on.
void dropOwnMessages(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (!isPlayerThread && othersHandler != nullptr) othersHandler(type, context, message);
}

void stopThePlayer() {
  thePlayer().stop();
}

/// The connection to the sound server is an object that Qt makes when it is first used and
/// destroys when the process ends. The player has to stop before, and handlers run in reverse
/// order.
void stopBeforeConnectionEnds(const QAudioDevice& device) {
  static const bool done = [&device] {
    // Without a format a sink does not get further than making the connection.
    QBuffer nothing;
    nothing.open(QIODevice::ReadOnly);
    QAudioSink(device, {}).start(&nothing);
    return std::atexit(stopThePlayer) == 0;
  }();
  static_cast<void>(done);
}

Player& thePlayer() {
  // Never deleted: it is stopped before the process ends.
  static auto* const player = [] {
    othersHandler = qInstallMessageHandler(dropOwnMessages);
    // For a process that ends while the thread makes its connection.
    std::atexit(stopThePlayer);
    return std::make_unique<Player>().release();
  }();
  return *player;
}

void Player::play(Request request) {
  {
    const std::lock_guard lock(mutex_);
    stopping_ = false;
    requests_.push_back(std::move(request));
  }
  changed_.notify_one();
  if (isRunning()) return;
  qAddPostRoutine(stopThePlayer);
  start();
}

void Player::stop() {
  {
    const std::lock_guard lock(mutex_);
    stopping_ = true;
    requests_.clear();
  }
  changed_.notify_one();
  wait(QDeadlineTimer(kLongestStop));
}

void Player::run() {
  isPlayerThread = true;
  std::unique_lock lock(mutex_);
  while (true) {
    changed_.wait(lock, [this] { return stopping_ || !requests_.empty(); });
    if (stopping_) return;
    const Request request = std::move(requests_.front());
    requests_.pop_front();
    lock.unlock();
    playToEnd(request);
    lock.lock();
    // The server tells what has changed when a sound has ended, and Qt's connection to it must not
    // be destroyed while it listens. Nobody can ask it whether it does.
    if (stopping_) msleep(kSettle.count());
  }
}

void Player::playToEnd(const Request& request) {
  SoundFile sound(request.path);
  if (!sound.isSound()) return;
  // The connection notices here that the server has gone, or is there again.
  while (eventDispatcher()->processEvents(QEventLoop::AllEvents)) {
  }
  const QAudioDevice device = QMediaDevices::defaultAudioOutput();
  if (device.isNull()) return;
  stopBeforeConnectionEnds(device);

  QAudioSink sink(device, sound.format());
  sink.setBufferSize(sound.format().bytesForDuration(std::chrono::microseconds(kBuffer).count()));
  sink.start(&sound);
  // A sink is idle when all has been written, not when all has been heard. The silence that has
  // been written by then has pushed the sound out of the server.
  sound.setTail(2 * sink.bufferSize());

  QTimer tick;
  tick.start(kTick);
  while (sink.state() != QAudio::StoppedState &&
         !(sink.state() == QAudio::IdleState && sound.atEnd()) && !isReplaced()) {
    eventDispatcher()->processEvents(QEventLoop::WaitForMoreEvents);
  }
  // A sink that ends while it plays would go on feeding a stream that has gone.
  sink.stop();
}

bool Player::isReplaced() {
  const std::lock_guard lock(mutex_);
  while (!requests_.empty() && requests_.front().giveWay) requests_.pop_front();
  return stopping_ || !requests_.empty();
}

}  // namespace

extern "C" [[gnu::visibility("default")]] void kvrnstepPlaySound(const char* path, int giveWay) {
  try {
    if (path != nullptr) thePlayer().play({path, giveWay != 0});
  } catch (const std::exception&) {
    // Without memory for it there is no sound.
  }
}
