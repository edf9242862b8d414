#include "sound_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace kvrnstep::sound {

SoundFile::SoundFile(const std::string& path) {
  // A pipe must not make anybody wait.
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) return;
  struct stat status {};
  if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
    ::close(descriptor);
    return;
  }
  SF_INFO info{};
  file_.reset(sf_open_fd(descriptor, SFM_READ, &info, SF_TRUE));
  if (!file_ || info.frames <= 0 || info.seekable == 0) return;

  format_.setSampleFormat(QAudioFormat::Float);
  format_.setSampleRate(info.samplerate);
  format_.setChannelCount(info.channels);
  soundBytes_ = info.frames * format_.bytesPerFrame();
  bytesLeft_ = soundBytes_;
  open(ReadOnly | Unbuffered);
}

qint64 SoundFile::readData(char* data, qint64 most) {
  const qint64 frameBytes = format_.bytesPerFrame();
  const qint64 frames = frameBytes > 0 ? std::min<qint64>(most, bytesLeft_) / frameBytes : 0;
  if (frames <= 0) return 0;
  const qint64 bytes = frames * frameBytes;
  // The caller's memory need not be aligned for samples.
  std::vector<float> samples(static_cast<std::size_t>(frames * format_.channelCount()));
  // At the end of the file, or where it is damaged, the rest stays silent.
  sf_readf_float(file_.get(), samples.data(), frames);
  std::memcpy(data, samples.data(), static_cast<std::size_t>(bytes));
  bytesLeft_ -= bytes;
  return bytes;
}

}  // namespace kvrnstep::sound
