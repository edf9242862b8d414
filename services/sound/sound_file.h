#pragma once

#include <sndfile.h>

#include <QAudioFormat>
#include <QIODevice>
#include <atomic>
#include <memory>
#include <string>

namespace kvrnstep::sound {

/// The samples of a sound file, and silence behind them.
class SoundFile : public QIODevice {
 public:
  explicit SoundFile(const std::string& path);

  /// False for what is missing, is no regular file, or holds no sound.
  [[nodiscard]] bool isSound() const { return soundBytes_ > 0; }
  [[nodiscard]] QAudioFormat format() const { return format_; }
  /// How much silence follows the samples.
  void setTail(qint64 bytes) { bytesLeft_ = bytesLeft_ + bytes; }

  [[nodiscard]] bool isSequential() const override { return true; }
  /// Without the silence, for playing may start when this much has been read.
  [[nodiscard]] qint64 size() const override { return soundBytes_; }
  [[nodiscard]] qint64 bytesAvailable() const override { return bytesLeft_; }
  /// May be asked by any thread.
  [[nodiscard]] bool atEnd() const override { return bytesLeft_ <= 0; }

 protected:
  qint64 readData(char* data, qint64 most) override;
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  struct Close {
    void operator()(SNDFILE* file) const { sf_close(file); }
  };

  std::unique_ptr<SNDFILE, Close> file_;
  QAudioFormat format_;
  qint64 soundBytes_ = 0;
  std::atomic<qint64> bytesLeft_ = 0;
};

}  // namespace kvrnstep::sound
