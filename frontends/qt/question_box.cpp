#include "question_box.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

#include "qt_fonts.h"
#include "text.h"

namespace kvrnstep::qt {

QuestionBox::QuestionBox(const forms::Question& question, QWidget* owner) : QDialog(owner) {
  constexpr int kNarrowest = 280;
  setWindowTitle(toQt(question.title));
  setAttribute(Qt::WA_QuitOnClose, false);
  setFont(captionFont());

  // The empty lines below a prompt would be a hole in the box.
  auto* prompt = new QLabel(toQt(question.prompt).trimmed(), this);
  prompt->setTextFormat(Qt::PlainText);
  prompt->setWordWrap(true);
  line_ = new QLineEdit(toQt(question.proposal), this);
  line_->selectAll();
  line_->setMinimumWidth(kNarrowest);
  line_->setAccessibleName(prompt->text());
  prompt->setBuddy(line_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  ok_ = buttons->button(QDialogButtonBox::Ok);
  cancel_ = buttons->button(QDialogButtonBox::Cancel);
  for (QPushButton* button : {ok_, cancel_}) button->setIcon({});
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addWidget(prompt);
  layout->addWidget(line_);
  layout->addWidget(buttons);
}

}  // namespace kvrnstep::qt
