#include "file_box.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QStringList>

#include "qt_fonts.h"
#include "text.h"

namespace kvrnstep::qt {

namespace {

/// "txt" of "*.txt".
QString extensionOf(const forms::FileFilter& filter) {
  return toQt(filter.pattern).section('.', -1);
}

}  // namespace

FileBox::FileBox(const forms::FileDialog& dialog, QFileDialog::AcceptMode mode, QWidget* owner)
    : QFileDialog(owner, toQt(dialog.title), toQt(dialog.folder)) {
  setOption(QFileDialog::DontUseNativeDialog);
  setAttribute(Qt::WA_QuitOnClose, false);
  setFont(captionFont());
  setAcceptMode(mode);
  setFileMode(mode == AcceptOpen ? ExistingFile : AnyFile);
  for (QAbstractButton* button : findChild<QDialogButtonBox*>()->buttons()) button->setIcon({});
  QStringList filters;
  for (const forms::FileFilter& filter : dialog.filters) filters << toQt(filter.text);
  setNameFilters(filters);
  if (!dialog.name.empty()) selectFile(toQt(dialog.name));
  if (mode == AcceptOpen) {
    // Qt lets the user name only what the filter shows. Any file can be named: what is none, Qt
    // says when it is asked for.
    auto* open = findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open);
    connect(findChild<QLineEdit*>(), &QLineEdit::textChanged, open,
            [open](const QString& text) { open->setEnabled(!text.isEmpty()); });
  }
  if (dialog.defaultExtension.empty()) return;
  setDefaultSuffix(toQt(dialog.defaultExtension));
  // Who asks for a plain text file and names no extension means that one.
  connect(this, &QFileDialog::filterSelected, this, [this, dialog](const QString& text) {
    for (const forms::FileFilter& filter : dialog.filters) {
      if (toQt(filter.text) == text) setDefaultSuffix(extensionOf(filter));
    }
  });
}

void FileBox::accept() {
  if (!findChild<QLineEdit*>()->text().isEmpty()) QFileDialog::accept();
}

std::optional<std::u16string> FileBox::choose() {
  if (exec() != QDialog::Accepted || selectedFiles().isEmpty()) return std::nullopt;
  return fromQt(QDir::toNativeSeparators(selectedFiles().first()));
}

}  // namespace kvrnstep::qt
