#pragma once

#include <QMessageBox>
#include <QPointer>

class QInputDialog;

namespace ui
{

/// A message box that keeps off the values which the user has to read while it is open (`keepVisible`).
class Box : public QMessageBox
{
    Q_OBJECT

public:
    using QMessageBox::QMessageBox;

protected:
    void showEvent(QShowEvent *event) override;
};

/// Runs a dialog above the active window and gives the activity back to that window afterwards. A box that tells of
/// what was written comes after that is in the file. The caller checks for the program's end once the dialog is gone.
int runDialog(const QPointer<QDialog> &dialog);

/// Sets what stands behind the tabs of the box's text in one column, a long value below itself. The text stays as it
/// is.
void alignTabs(QMessageBox &box);

/// Makes the box of an input dialog as wide as its prompt and the text that it offers.
void fitInput(QInputDialog &dialog);

} // namespace ui
