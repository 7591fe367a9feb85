#include "core/caixalista.h"

#include "core/janelas.h"
#include "core/textolongo.h"
#include "platform/ui/form.h"

#include <QAbstractButton>
#include <QComboBox>

namespace core
{

CaixaDeLista::CaixaDeLista(ui::Form &janela, QComboBox *combo, ListaCombo lista, QAbstractButton *acrescenta,
                           QAbstractButton *remove)
    : QObject(combo), combo_(combo), lista_(lista)
{
    janela.onChange(combo, this, &CaixaDeLista::muda);
    if (acrescenta == nullptr) {
        return;
    }
    janela.onClick(acrescenta, this, &CaixaDeLista::acrescenta);
    janela.onClick(remove, this, &CaixaDeLista::remove);
    LigaBotoesDaLista(combo, acrescenta, remove);
}

void CaixaDeLista::carrega()
{
    AtualizaCombo(combo_, lista_, ModoCombo::Carrega);
}

void CaixaDeLista::escreve(const QString &texto)
{
    escrevendo_ = true;
    EscreveTexto(combo_, texto);
    escrevendo_ = false;
}

void CaixaDeLista::muda()
{
    if (escrevendo_) {
        AnotaTexto(combo_);
    } else {
        AutoCompletaCombo(combo_);
    }
}

void CaixaDeLista::acrescenta()
{
    AtualizaCombo(combo_, lista_, ModoCombo::Acrescenta);
}

void CaixaDeLista::remove()
{
    AtualizaCombo(combo_, lista_, ModoCombo::Exclui);
}

} // namespace core
