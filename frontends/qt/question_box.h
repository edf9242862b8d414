#pragma once

#include <QDialog>
#include <QLineEdit>

#include "forms/toolkit.h"

namespace kvrnstep::qt {

/// A question, a line for the answer with the proposal in it, OK and Cancel.
class QuestionBox : public QDialog {
 public:
  QuestionBox(const forms::Question& question, QWidget* owner);

  [[nodiscard]] QLineEdit& line() const { return *line_; }

 private:
  QLineEdit* line_;
};

}  // namespace kvrnstep::qt
