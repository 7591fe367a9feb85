#include "core/textolongo.h"

#include "platform/ui/form.h"

#include <QComboBox>
#include <QLineEdit>

namespace core
{

void EscreveTexto(QWidget *caixa, const QString &texto)
{
    ui::setTextOf(caixa, texto);
    auto *linha = qobject_cast<QLineEdit *>(caixa);
    if (const auto *combo = qobject_cast<QComboBox *>(caixa)) {
        linha = combo->lineEdit();
    }
    if (linha != nullptr) {
        linha->setCursorPosition(0);
    }
}

} // namespace core
