#pragma once

#include <QApplication>
#include <QDataStream>
#include <QDialog>
#include <QElapsedTimer>
#include <functional>
#include <vector>

/// The dialog as a bare one: widgets of the same kinds in the same places, and nothing behind them.
namespace kvrnstep::bench {

struct Part {
  int kind = 0;  ///< what `Design::fill` makes of it
  QRect place;
  bool hidden = false;
  QString caption;
  std::vector<Part> within;
};

/// What a window consists of.
struct Design {
  QSize size;
  qsizetype menus = 0;
  std::vector<Part> parts;

  Design() = default;
  explicit Design(const QWidget& window);

  void fill(QDialog& dialog) const;
};

QDataStream& operator<<(QDataStream& stream, const Design& design);
QDataStream& operator>>(QDataStream& stream, Design& design);

/// Closes each window as soon as it has been painted for the first time.
class Opening : public QObject {
 public:
  Opening() { qApp->installEventFilter(this); }

  /// Seconds from the call to the first paint.
  template <class Open>
  double measure(Open open) {
    painted_ = false;
    timer_.start();
    open();
    return static_cast<double>(nanoseconds_) / 1e9;
  }

  std::function<void(QWidget&)> look = [](QWidget&) {};

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QElapsedTimer timer_;
  qint64 nanoseconds_ = 0;
  bool painted_ = false;
};

}  // namespace kvrnstep::bench
