#pragma once

#include <QThread>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>

namespace kvrnstep::sound {

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

}  // namespace kvrnstep::sound
