#pragma once

namespace kvrnstep::forms {

/// Carries out what the loop of a toolkit or of the system has called for. An exception must not
/// pass through that loop, so it ends here: what threw is skipped, and the result is 0 or false.
template <class Action>
auto guarded(Action action) -> decltype(action()) {
  try {
    return action();
  } catch (...) {
    return decltype(action())();
  }
}

/// A mark that is set for as long as this lives. An exception takes it back, too.
class Meanwhile {
 public:
  explicit Meanwhile(bool& mark) : mark_(mark) { mark = true; }
  ~Meanwhile() { mark_ = false; }
  Meanwhile(const Meanwhile&) = delete;
  Meanwhile& operator=(const Meanwhile&) = delete;

 private:
  bool& mark_;
};

}  // namespace kvrnstep::forms
