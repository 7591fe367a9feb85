#include "reports/frmRelaSelecaoNotasEntradas.h"

#include "ui_frmRelaSelecaoNotasEntradas.h"

#include "core/banco.h"
#include "core/caixacodigo.h"
#include "core/devolucao.h"
#include "core/informacoes.h"
#include "core/janelas.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "platform/dao/recordset.h"
#include "reports/relanotas.h"

namespace reports
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

/// A text that is no code finds no row.
QString consultaDoFornecedor(const QString &texto)
{
    return u"SELECT Nome From Fornecedores WHERE Codigo = "_s + QString::number(CodigoDoTexto(texto).value_or(0));
}

} // namespace

frmRelaSelecaoNotasEntradas::frmRelaSelecaoNotasEntradas()
    : JanelaSelecao(selecaoDeNotas), ui_(std::make_unique<Ui::frmRelaSelecaoNotasEntradas>())
{
    ui_->setupUi(this);
    liga(ui_->btnPreenche, ui_->btnVoltar);
    ligaFornecedor();
    onClick(ui_->btnFornecedorFind, &frmRelaSelecaoNotasEntradas::btnFornecedorFind_Click);
    onKey(ui_->txtCodForn, Qt::Key_F1, &frmRelaSelecaoNotasEntradas::btnFornecedorFind_Click);
}

frmRelaSelecaoNotasEntradas::~frmRelaSelecaoNotasEntradas() = default;

void frmRelaSelecaoNotasEntradas::ligaFornecedor()
{
    fornecedor_ = new CaixaDeCodigo(
        *this, ui_->txtCodForn,
        {.consulta = consultaDoFornecedor,
         .naoLocalizado = u"Código do Fornecedor não localizado",
         .mostra =
             [this](const dao::Recordset &linha) { ui_->lblFornecedor->setText(NuloParaVazio(linha.value(u"Nome"))); },
         .esvazia = [this] { ui_->lblFornecedor->setText({}); },
         .voltaOFoco = false});
}

void frmRelaSelecaoNotasEntradas::Form_Load()
{
    JanelaSelecao::Form_Load();
    disableUnlessExists(u"frmCadaFornecedor"_s, {ui_->btnFornecedorFind});
    ui_->txtCodForn->setFocus();
}

/// The register hands the code back in either mode; that of the query has to outlast it.
void frmRelaSelecaoNotasEntradas::btnFornecedorFind_Click()
{
    const bool paraConsulta = ModoChamada == modoConsultaNotasFornecedor;
    Chama(u"frmCadaFornecedor"_s, paraConsulta ? modoProcuraFornecedorDaConsulta : modoProcuraFornecedorDoRelatorio);
}

/// The supplier may have been deleted since his name was shown.
void frmRelaSelecaoNotasEntradas::btnPreenche_Click()
{
    if (ui_->txtCodForn->text().isEmpty() || ui_->lblFornecedor->text().isEmpty()) {
        Recusa(u"Código do Fornecedor inválido"_s, ui_->txtCodForn);
        return;
    }
    fornecedor_->procura();
    if (ui_->lblFornecedor->text().isEmpty()) {
        return;
    }
    if (ModoChamada == modoConsultaNotasFornecedor) {
        ui::Forms::instance().ShowAfresh(u"frmMoviEntradaPecaConsultaFornecedor"_s);
        return;
    }
    JanelaSelecao::btnPreenche_Click();
}

} // namespace reports
