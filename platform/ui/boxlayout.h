#pragma once

#include <QMessageBox>

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

/// Sets what stands behind the tabs of the box's text in one column, a long value below itself. The text stays as it
/// is.
void alignTabs(QMessageBox &box);

/// Makes the box of an input dialog as wide as its prompt and the text that it offers.
void fitInput(QInputDialog &dialog);

} // namespace ui
