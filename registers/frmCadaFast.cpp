#include "registers/frmCadaFast.h"

#include "ui_frmCadaFast.h"

#include "registers/avisos.h"
#include "registers/conversoes.h"
#include "registers/estados.h"

#include "core/banco.h"
#include "core/caixacodigo.h"
#include "core/combos.h"
#include "core/funcoes.h"
#include "core/limites.h"
#include "core/modos.h"
#include "core/modulo.h"
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

constexpr std::array<Devolucao, 1> tabelaDevolucoes{{{modoNormal, u"frmOSAbre", u"txtCodVeiculo"}}};

/// What a customer has here: a part of the register's fields, none of them demanded.
constexpr std::array camposDoCliente{
    Campo{u"txtNome", u"Nome", comoEsta, ouNulo},     Campo{u"txtEndereco", u"Endereco", comoEsta, ouNulo},
    Campo{u"txtNumero", u"Numero", comoEsta, ouNulo}, Campo{u"txtComplemento", u"Complemento", comoEsta, ouNulo},
    Campo{u"txtBairro", u"Bairro", comoEsta, ouNulo}, Campo{u"txtCidade", u"Cidade", comoEsta, ouNulo},
    Campo{u"cboEstado", u"Estado", comoEsta, ouNulo}, Campo{u"txtCEP", u"CEP", comoEsta, ouNulo},
    Campo{u"txtFone1", u"Fone1", comoEsta, ouNulo},   Campo{u"txtCelular", u"Celular", comoEsta, ouNulo},
};

constexpr std::array camposDoVeiculo{
    Campo{u"cboMarca", u"MarcaModelo", comoEsta, comoTexto},
    Campo{u"txtAno", u"Ano", comoEsta, ouNulo},
    Campo{u"txtCor", u"Cor", comoEsta, ouNulo},
    Campo{u"txtPlaca", u"Placas", comoEsta, ouNulo},
    Campo{u"txtCombustivel", u"Combustivel", comoEsta, ouNulo},
};

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
    ligaCliente();
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
    onClick(ui_->btnMarcaAdd, &frmCadaFast::btnMarcaAdd_Click);
    onClick(ui_->btnMarcaRemove, &frmCadaFast::btnMarcaRemove_Click);
    LigaBotoesDaLista(ui_->cboMarca, ui_->btnMarcaAdd, ui_->btnMarcaRemove);
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
    limitaTextos(u"Clientes"_s, camposDoCliente);
    limitaTextos(u"Veiculos"_s, camposDoVeiculo);
    AtualizaCombo(ui_->cboMarca, ListaCombo::MarcaModelo, ModoCombo::Carrega);
}

void frmCadaFast::limitaTextos(const QString &tabela, std::span<const Campo> campos) const
{
    const dao::Recordset linhas = DBDados->OpenRecordset(tabela);
    for (const Campo &campo : campos) {
        LimitaAoCampo(controle(campo.controle), linhas, campo.coluna);
    }
}

void frmCadaFast::ligaCliente()
{
    new CaixaDeCodigo(*this, ui_->txtCodCliente,
                      {.consulta = [](const QString &codigo) -> QString {
                           return u"SELECT * FROM Clientes WHERE Codigo = "_s + codigo;
                       },
                       .naoLocalizado = u"Código do Cliente não localizado",
                       .mostra = [this](const dao::Recordset &cliente) { mostraCliente(cliente); },
                       .esvazia = [this] { limpaCliente(); },
                       .vazioEsvazia = true,
                       .cadastro = u"frmCadaCliente",
                       .procura = ui_->btnClienteFind,
                       .modoProcura = modoProcuraClienteDoCadastroRapido});
}

void frmCadaFast::mostraCliente(const dao::Recordset &cliente)
{
    for (const Campo &campo : camposDoCliente) {
        ui::setTextOf(controle(campo.controle), campo.mostra(cliente, cliente.fieldPlace(campo.coluna)));
    }
}

void frmCadaFast::limpaCliente()
{
    for (const Campo &campo : camposDoCliente) {
        ui::setTextOf(controle(campo.controle), {});
    }
    ui_->cboEstado->setEditText(u"SP"_s);
}

QWidget *frmCadaFast::controle(QStringView nome) const
{
    return findChild<QWidget *>(nome.toString());
}

TextoDoControle frmCadaFast::textos() const
{
    return [this](QStringView nome) { return ui::textOf(controle(nome)); };
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
        cliente[u"DataCadastro"] = Hoje();
        GravaCampos(cliente, camposDoCliente, Gravacao::Inclusao, textos());
    });
}

qint32 frmCadaFast::incluiVeiculo(const Value &codCliente) const
{
    return AcrescentaLinha(u"Veiculos"_s, [&](dao::Recordset &veiculo) {
        veiculo[u"CodCliente"] = codCliente;
        GravaCampos(veiculo, camposDoVeiculo, Gravacao::Inclusao, textos());
    });
}

void frmCadaFast::btnVoltar_Click()
{
    Unload();
}

} // namespace registers
