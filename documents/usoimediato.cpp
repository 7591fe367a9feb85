#include "documents/usoimediato.h"

#include "core/modulo.h"
#include "platform/ui/boxes.h"

#include <utility>

namespace documents
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

/// What follows a change in the lists, by then with their totals.
class Escrita
{
public:
    Escrita(PainelItens &painel, UsoImediato uso) : painel_(&painel), uso_(std::move(uso)) {}

    void acrescenta(const PosicaoItem &posicao) const
    {
        if (const auto chave = AcrescentaItem(uso_.documento, uso_.numero(), gravada(posicao), painel_->total())) {
            painel_->listas().setChave(posicao, *chave);
        } else {
            desfaz(posicao, uso_.semDocumento);
        }
    }

    void remove(const QString &chave) const
    {
        if (!RemoveItem(uso_.documento, uso_.numero(), chave, painel_->total())) {
            avisa(uso_.semDocumento);
        }
    }

    void altera(const PosicaoItem &posicao) const
    {
        const auto mudanca = AlteraItem(uso_.documento, uso_.numero(), painel_->listas().chave(posicao),
                                        gravada(posicao), painel_->total());
        if (mudanca != Mudanca::Gravada) {
            desfaz(posicao, mudanca == Mudanca::SemItem ? u"Código do Item Não Localizado."_s : uso_.semDocumento);
        }
    }

private:
    LinhaItem gravada(const PosicaoItem &posicao) const
    {
        const ListasItens &listas = painel_->listas();
        return ParaGravar(listas.linha(posicao), posicao.aba, listas.compacto());
    }

    /// What is not in the table is not left in the list: the next change would count it.
    void desfaz(const PosicaoItem &posicao, const QString &motivo) const
    {
        painel_->listas().remove(posicao);
        painel_->recalcula();
        avisa(motivo);
    }

    static void avisa(const QString &motivo) { ui::MsgBox(motivo, ui::Icon::Exclamation, NomeEmpresa); }

    PainelItens *painel_;
    UsoImediato uso_;
};

} // namespace

UsoDoPainel UsoDe(PainelItens &painel, const UsoImediato &uso)
{
    const Escrita escrita(painel, uso);
    return {.abasComTeclas = uso.abasComTeclas,
            .removeMaterial = true,
            .limpaLista = false,
            .acrescentado = [escrita](const PosicaoItem &posicao) { escrita.acrescenta(posicao); },
            .removido = [escrita](const QString &chave) { escrita.remove(chave); },
            .editado = [escrita](const PosicaoItem &posicao) { escrita.altera(posicao); }};
}

} // namespace documents
