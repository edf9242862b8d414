#include "boxes.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>

#include "focus_ring.h"
#include "looks.h"
#include "text.h"

namespace kvrnstep::qt {

namespace {

/// What is done to each box before it is shown.
void prepare(QDialog& box) {
  // Closing it must not end a host whose own windows happen to be closed.
  box.setAttribute(Qt::WA_QuitOnClose, false);
  box.setFont(captionFont());
  for (QAbstractButton* button : box.findChild<QDialogButtonBox*>()->buttons()) {
    button->setIcon({});
  }
  new FocusRing(box);
}

/// Widens the box until its title has room beside the buttons of the frame. Only the desktop knows
/// the font of the title.
void fitTitle(QMessageBox& box) {
  constexpr int kHigh = 15;
  constexpr int kFrame = 100;
  QFont title = box.font();
  title.setPixelSize(kHigh);
  title.setBold(true);
  const int width = QFontMetrics(title).horizontalAdvance(box.windowTitle()) + kFrame;
  auto& grid = static_cast<QGridLayout&>(*box.layout());
  grid.addItem(new QSpacerItem(width, 0), grid.rowCount(), 0, 1, grid.columnCount());
}

/// "txt" of "*.txt".
QString extensionOf(const forms::FileFilter& filter) {
  return toQt(filter.pattern).section('.', -1);
}

}  // namespace

MessageBox::MessageBox(const forms::Message& message, QWidget* owner)
    : QMessageBox(message.icon == forms::MessageIcon::Information ? Information : Warning,
                  toQt(message.title), toQt(message.text), Ok, owner) {
  setTextFormat(Qt::PlainText);
  prepare(*this);
  fitTitle(*this);
}

QuestionBox::QuestionBox(const forms::Question& question, QWidget* owner) : QInputDialog(owner) {
  constexpr int kNarrowest = 280;
  QString prompt = toQt(question.prompt);
  // The last break ends the last line; Qt would begin another line behind it.
  if (prompt.endsWith('\n')) prompt.chop(1);
  setWindowTitle(toQt(question.title));
  setLabelText(prompt);
  setTextValue(toQt(question.proposal));
  // Has Qt make its layout and buttons.
  adjustSize();
  findChild<QLabel*>()->setTextFormat(Qt::PlainText);
  findChild<QLabel*>()->setWordWrap(true);
  line().setMinimumWidth(kNarrowest);
  line().setAccessibleName(prompt.trimmed());
  layout()->setSizeConstraint(QLayout::SetFixedSize);
  prepare(*this);
}

QLineEdit& QuestionBox::line() const {
  return *findChild<QLineEdit*>();
}

FileBox::FileBox(const forms::FileDialog& dialog, QFileDialog::AcceptMode mode, QWidget* owner)
    : QFileDialog(owner, toQt(dialog.title), toQt(dialog.folder)) {
  setOption(QFileDialog::DontUseNativeDialog);
  setAcceptMode(mode);
  setFileMode(mode == AcceptOpen ? ExistingFile : AnyFile);
  prepare(*this);
  QStringList filters;
  for (const forms::FileFilter& filter : dialog.filters) filters << toQt(filter.text);
  setNameFilters(filters);
  if (!dialog.name.empty()) selectFile(toQt(dialog.name));
  if (mode == AcceptOpen) {
    // Qt disables the button for names that the filter hides, but any file can be opened. Where
    // there is none of that name Qt says so.
    auto* open = findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open);
    connect(findChild<QLineEdit*>(), &QLineEdit::textChanged, open,
            [open](const QString& text) { open->setEnabled(!text.isEmpty()); });
  }
  if (dialog.defaultExtension.empty()) return;
  setDefaultSuffix(toQt(dialog.defaultExtension));
  // The extension is that of the chosen filter.
  connect(this, &QFileDialog::filterSelected, this, [this, dialog](const QString& text) {
    for (const forms::FileFilter& filter : dialog.filters) {
      if (toQt(filter.text) == text) setDefaultSuffix(extensionOf(filter));
    }
  });
}

void FileBox::accept() {
  if (!findChild<QLineEdit*>()->text().isEmpty()) QFileDialog::accept();
}

}  // namespace kvrnstep::qt
