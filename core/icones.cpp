#include "core/icones.h"

#include "platform/ui/controls.h"

#include <QAbstractButton>
#include <QVariant>

#include <algorithm>
#include <array>

namespace core
{

namespace
{

constexpr auto propIcone = "icone";

struct Icone {
    QStringView fim; ///< of the button's name, without the index of a control array
    QStringView icone;
};

/// The first row that fits holds.
constexpr std::array icones{
    Icone{u"ItemAdd", u"list-add"},
    Icone{u"ItemRemove", u"list-remove"},
    Icone{u"ParcelasAdd", u"list-add"},
    Icone{u"ParcelasMenos", u"list-remove"},
    Icone{u"BancoAdd", u"bookmark-new"},
    Icone{u"DescricaoAdd", u"bookmark-new"},
    Icone{u"MarcaAdd", u"bookmark-new"},
    Icone{u"MecAdd", u"bookmark-new"},
    Icone{u"Remove", u"edit-delete"},
    Icone{u"Add", u"document-new"},
    Icone{u"Find", u"edit-find"},
    Icone{u"Info", u"documentinfo"},
    Icone{u"InfoCliente", u"documentinfo"},
    Icone{u"InfoVeiculo", u"documentinfo"},
    Icone{u"Altera", u"document-edit"},
    Icone{u"Alterar", u"document-edit"},
    Icone{u"Print", u"document-print"},
    Icone{u"Previsualizar", u"document-print-preview"},
    Icone{u"btnAdicionar", u"edit-table-insert-row-below"},
    Icone{u"btnAtualiza", u"view-refresh"},
    Icone{u"btnBack", u"go-previous"},
    Icone{u"btnCancelar", u"edit-clear"},
    Icone{u"btnExcluir", u"edit-delete"},
    Icone{u"btnFechar", u"dialog-ok-apply"},
    Icone{u"btnGravar", u"dialog-ok-apply"},
    Icone{u"btnIncluir", u"dialog-ok-apply"},
    Icone{u"btnLimpa", u"edit-clear-all"},
    Icone{u"btnLimpar", u"edit-clear"},
    Icone{u"btnLocalizar", u"crosshairs"},
    Icone{u"btnManutencao", u"system-users"},
    Icone{u"btnNext", u"go-next"},
    Icone{u"btnOk", u"dialog-ok"},
    Icone{u"btnPesquisar", u"edit-find"},
    Icone{u"btnPreenche", u"view-list-details"},
    Icone{u"btnSalvar", u"dialog-ok-apply"},
    Icone{u"btnTodos", u"view-list-details"},
    Icone{u"btnVoltar", u"go-previous"},
    Icone{u"cmdOK", u"dialog-ok"},
};

QString iconeDe(const QAbstractButton &botao)
{
    if (const QVariant proprio = botao.property(propIcone); proprio.isValid()) {
        return proprio.toString();
    }
    const QString nome = botao.objectName().section(u'_', 0, 0);
    const auto *const achado =
        std::ranges::find_if(icones, [&](const Icone &icone) { return nome.endsWith(icone.fim); });
    return achado == icones.end() ? QString() : achado->icone.toString();
}

} // namespace

void PoeIcones(const QWidget &janela)
{
    for (auto *botao : janela.findChildren<QAbstractButton *>()) {
        if (const QString icone = iconeDe(*botao); !icone.isEmpty()) {
            botao->setIcon(ui::icon(icone));
        }
    }
}

} // namespace core
