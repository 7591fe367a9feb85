#include "platform/ui/filebox.h"

#include "platform/ui/application.h"
#include "platform/ui/boxlayout.h"
#include "platform/ui/focus.h"

#include <QDir>
#include <QFileDialog>
#include <QPointer>

namespace ui
{

QString OpenFileBox(const QString &caption, const QString &filter)
{
    const QPointer<QFileDialog> dialog = new QFileDialog(frontWindow(), caption, QDir::homePath(), filter);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setViewMode(QFileDialog::List);
    dialog->setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::ReadOnly);
    const bool accepted = runDialog(dialog.data()) == QDialog::Accepted;
    auto answer = accepted && dialog ? dialog->selectedFiles().value(0) : QString();
    delete dialog;
    checkEnded();
    return answer;
}

} // namespace ui
