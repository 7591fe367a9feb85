#include "registers/frmCadaFast.h"

#include "ui_frmCadaFast.h"

#include "registers/avisos.h"
#include "registers/estados.h"

#include "core/banco.h"
#include "core/combos.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/controls.h"

#include <array>

namespace registers
{

using namespace runtime;
using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr qint16 procuraCliente = 38; ///< `ModoChamada` of the customer register when it picks for this window

constexpr std::array<Devolucao, 1> tabelaDevolucoes{{{0, u"frmOSAbre", u"txtCodVeiculo"}}};

/// A text of the screen and its column.
struct Campo {
    QLineEdit *Ui::frmCadaFast::*controle;
    QStringView coluna;
};

using Janela = Ui::frmCadaFast;

/// The columns of a customer around the state, which is a combo.
constexpr std::array camposAntesDoEstado{
    Campo{&Janela::txtNome, u"Nome"},     Campo{&Janela::txtEndereco, u"Endereco"},
    Campo{&Janela::txtNumero, u"Numero"}, Campo{&Janela::txtComplemento, u"Complemento"},
    Campo{&Janela::txtBairro, u"Bairro"}, Campo{&Janela::txtCidade, u"Cidade"},
};
constexpr std::array camposDepoisDoEstado{
    Campo{&Janela::txtCEP, u"CEP"},
    Campo{&Janela::txtFone1, u"Fone1"},
    Campo{&Janela::txtCelular, u"Celular"},
};
constexpr std::array camposDoVeiculo{
    Campo{&Janela::txtAno, u"Ano"},
    Campo{&Janela::txtCor, u"Cor"},
    Campo{&Janela::txtPlaca, u"Placas"},
    Campo{&Janela::txtCombustivel, u"Combustivel"},
};

template<std::size_t N>
void grava(dao::Recordset &linha, const Janela &janela, const std::array<Campo, N> &campos)
{
    for (const Campo &campo : campos) {
        linha[campo.coluna] = ValorOuNulo((janela.*campo.controle)->text());
    }
}

template<std::size_t N>
void mostra(const dao::Recordset &linha, const Janela &janela, const std::array<Campo, N> &campos)
{
    for (const Campo &campo : campos) {
        (janela.*campo.controle)->setText(NuloParaVazio(linha.value(campo.coluna)));
    }
}

template<std::size_t N>
void limpa(const Janela &janela, const std::array<Campo, N> &campos)
{
    for (const Campo &campo : campos) {
        (janela.*campo.controle)->clear();
    }
}

} // namespace

frmCadaFast::frmCadaFast() : Form(u"frmCadaFast"_s), ui_(std::make_unique<Ui::frmCadaFast>())
{
    ui_->setupUi(this);
    ligaEventos();

    ui_->btnClienteFind->setIcon(ui::icon(u"edit-find"_s));
    ui_->btnMarcaAdd->setIcon(ui::icon(u"bookmark-new"_s));
    ui_->btnMarcaRemove->setIcon(ui::icon(u"edit-delete"_s));
    ui_->btnIncluir->setIcon(ui::icon(u"dialog-ok-apply"_s));
    ui_->btnVoltar->setIcon(ui::icon(u"go-previous"_s));
}

frmCadaFast::~frmCadaFast() = default;

void frmCadaFast::ligaEventos()
{
    onLostFocus(ui_->txtCodCliente, &frmCadaFast::txtCodCliente_LostFocus);
    filterKeys(ui_->txtCodCliente, SoInteiros);
    onLostFocus(ui_->txtNome, &frmCadaFast::txtNome_LostFocus);
    filterKeys(ui_->txtNumero, SoDecimais);
    filterKeys(ui_->txtCEP, SoInteiros);
    onChange(ui_->txtCEP, &frmCadaFast::txtCEP_Change);
    filterKeys(ui_->txtFone1, SoInteiros);
    onChange(ui_->txtFone1, &frmCadaFast::txtFone1_Change);
    filterKeys(ui_->txtCelular, SoInteiros);
    onChange(ui_->txtCelular, &frmCadaFast::txtCelular_Change);
    onChange(ui_->cboMarca, &frmCadaFast::cboMarca_Change);
    onChange(ui_->txtAno, &frmCadaFast::txtAno_Change);
    onLostFocus(ui_->txtPlaca, &frmCadaFast::txtPlaca_LostFocus);
    onClick(ui_->btnClienteFind, &frmCadaFast::btnClienteFind_Click);
    onKey(ui_->txtCodCliente, Qt::Key_F1, &frmCadaFast::btnClienteFind_Click);
    onClick(ui_->btnMarcaAdd, &frmCadaFast::btnMarcaAdd_Click);
    onClick(ui_->btnMarcaRemove, &frmCadaFast::btnMarcaRemove_Click);
    onClick(ui_->btnIncluir, &frmCadaFast::btnIncluir_Click);
    onClick(ui_->btnVoltar, &frmCadaFast::btnVoltar_Click);
}

std::span<const Devolucao> frmCadaFast::devolucoes()
{
    return tabelaDevolucoes;
}

void frmCadaFast::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(captionOf(u" - [Cadastro Rápido]"_s));
    PreencheEstados(ui_->cboEstado);
    AtualizaCombo(ui_->cboMarca, ListaCombo::MarcaModelo, ModoCombo::Carrega);
}

void frmCadaFast::txtCodCliente_LostFocus()
{
    const QString codigo = ui_->txtCodCliente->text();
    if (codigo.isEmpty()) {
        limpaCliente();
        return;
    }
    auto cliente = DBDados->OpenRecordset(u"SELECT * FROM Clientes WHERE Codigo = "_s + codigo);
    if (cliente.Eof()) {
        ui::MsgBox(u"Código do Cliente não localizado"_s, ui::Icon::Exclamation, NomeEmpresa);
        limpaCliente();
        SelecionaTexto(ui_->txtCodCliente);
        return;
    }
    ui_->txtCodCliente->setText(Format(codigo, mascaraCodigo));
    mostraCliente(cliente);
}

void frmCadaFast::mostraCliente(const dao::Recordset &cliente)
{
    mostra(cliente, *ui_, camposAntesDoEstado);
    ui_->cboEstado->setEditText(NuloParaVazio(cliente.value(u"Estado")));
    mostra(cliente, *ui_, camposDepoisDoEstado);
}

void frmCadaFast::limpaCliente()
{
    limpa(*ui_, camposAntesDoEstado);
    ui_->cboEstado->setEditText(u"SP"_s);
    limpa(*ui_, camposDepoisDoEstado);
}

void frmCadaFast::txtNome_LostFocus()
{
    AvisaSeHa(u"SELECT Codigo FROM Clientes WHERE Nome = '"_s + ui_->txtNome->text() + u"'"_s,
              u"Nome de Cliente Já Cadastrado"_s);
}

void frmCadaFast::txtPlaca_LostFocus()
{
    AvisaSeHa(u"SELECT Placas FROM Veiculos WHERE Placas = '"_s + ui_->txtPlaca->text() + u"'"_s,
              u"Placa já cadastrada"_s);
}

void frmCadaFast::txtCEP_Change()
{
    MascaraTexto(ui_->txtCEP, TipoMascara::CEP);
}

void frmCadaFast::txtFone1_Change()
{
    MascaraTexto(ui_->txtFone1, TipoMascara::Fone);
}

void frmCadaFast::txtCelular_Change()
{
    MascaraTexto(ui_->txtCelular, TipoMascara::Fone);
}

void frmCadaFast::txtAno_Change()
{
    MascaraTexto(ui_->txtAno, TipoMascara::Ano);
}

void frmCadaFast::cboMarca_Change()
{
    AutoCompletaCombo(ui_->cboMarca);
}

void frmCadaFast::btnClienteFind_Click()
{
    Chama(u"frmCadaCliente"_s, procuraCliente);
}

void frmCadaFast::btnMarcaAdd_Click()
{
    AtualizaCombo(ui_->cboMarca, ListaCombo::MarcaModelo, ModoCombo::Acrescenta);
}

void frmCadaFast::btnMarcaRemove_Click()
{
    AtualizaCombo(ui_->cboMarca, ListaCombo::MarcaModelo, ModoCombo::Exclui);
}

void frmCadaFast::btnIncluir_Click()
{
    if (!confere() || !ui::Confirm(u"Confirma a Inclusão"_s, NomeEmpresa)) {
        return;
    }
    const QString conhecido = ui_->txtCodCliente->text();
    const qint32 veiculo = incluiVeiculo(conhecido.isEmpty() ? Value(incluiCliente()) : Value(conhecido));
    Devolve(tabelaDevolucoes.front(), QString::number(veiculo));
    Unload();
}

bool frmCadaFast::confere()
{
    if (!ValidaCampo(ui_->txtNome, u"Nome Inválido"_s, TipoCampo::NaoVazio)) {
        return false;
    }
    if (ui_->cboMarca->currentText().isEmpty()) {
        Recusa(u"Marca/Modelo Inválido"_s, ui_->cboMarca);
        return false;
    }
    return true;
}

qint32 frmCadaFast::incluiCliente() const
{
    return AcrescentaLinha(u"Clientes"_s, [this](dao::Recordset &cliente) {
        cliente[u"DataCadastro"] = Format(Today(), mascaraData);
        grava(cliente, *ui_, camposAntesDoEstado);
        cliente[u"Estado"] = ValorOuNulo(ui_->cboEstado->currentText());
        grava(cliente, *ui_, camposDepoisDoEstado);
    });
}

qint32 frmCadaFast::incluiVeiculo(const Value &codCliente) const
{
    return AcrescentaLinha(u"Veiculos"_s, [&](dao::Recordset &veiculo) {
        veiculo[u"CodCliente"] = codCliente;
        veiculo[u"MarcaModelo"] = ui_->cboMarca->currentText();
        grava(veiculo, *ui_, camposDoVeiculo);
    });
}

void frmCadaFast::btnVoltar_Click()
{
    Unload();
}

} // namespace registers
