#include "question_box.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt_fonts.h"
#include "text.h"

namespace kvrnstep::qt {

QuestionBox::QuestionBox(const forms::Question& question, QWidget* owner) : QDialog(owner) {
  constexpr int kNarrowest = 280;
  setWindowTitle(toQt(question.title));
  setAttribute(Qt::WA_QuitOnClose, false);
  setFont(captionFont());

  QString text = toQt(question.prompt);
  // The last break ends the last line, behind which Qt would begin another one.
  if (text.endsWith('\n')) text.chop(1);
  auto* prompt = new QLabel(text, this);
  prompt->setTextFormat(Qt::PlainText);
  prompt->setWordWrap(true);
  line_ = new QLineEdit(toQt(question.proposal), this);
  line_->selectAll();
  line_->setMinimumWidth(kNarrowest);
  prompt->setBuddy(line_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  for (QAbstractButton* button : buttons->buttons()) button->setIcon({});
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addWidget(prompt);
  layout->addWidget(line_);
  layout->addWidget(buttons);
}

}  // namespace kvrnstep::qt
