#include "registers/frmCadaFast.h"

#include "ui_frmCadaFast.h"

#include "registers/avisos.h"
#include "registers/estados.h"

#include "core/banco.h"
#include "core/caixacodigo.h"
#include "core/funcoes.h"
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

constexpr std::array aOrdem{Devolucao{modoNormal, u"frmOSAbre", u"txtCodVeiculo"}};

/// What a customer has here: a part of the register's fields, none of them demanded.
constexpr std::array camposDoCliente{
    Campo{u"", u"DataCadastro", nullptr, hojeNaInclusao},
    Campo{u"txtNome", u"Nome", comoEsta, ouNulo},
    Campo{u"txtEndereco", u"Endereco", comoEsta, ouNulo},
    Campo{u"txtNumero", u"Numero", comoEsta, ouNulo, SoDecimais},
    Campo{u"txtComplemento", u"Complemento", comoEsta, ouNulo},
    Campo{u"txtBairro", u"Bairro", comoEsta, ouNulo},
    Campo{u"txtCidade", u"Cidade", comoEsta, ouNulo},
    Campo{u"cboEstado", u"Estado", comoEsta, ouNulo},
    Campo{u"txtCEP", u"CEP", comoEsta, ouNulo, SoInteiros, TipoMascara::CEP},
    Campo{u"txtFone1", u"Fone1", comoEsta, ouNulo, SoInteiros, TipoMascara::Fone},
    Campo{u"txtCelular", u"Celular", comoEsta, ouNulo, SoInteiros, TipoMascara::Fone},
};

constexpr std::array camposDoVeiculo{
    Campo{.controle = u"cboMarca", .coluna = u"MarcaModelo", .grava = comoTexto, .lista = ListaCombo::MarcaModelo},
    Campo{u"txtAno", u"Ano", comoEsta, ouNulo, nullptr, TipoMascara::Ano},
    Campo{u"txtCor", u"Cor", comoEsta, ouNulo},
    Campo{u"txtPlaca", u"Placas", comoEsta, ouNulo},
    Campo{u"txtCombustivel", u"Combustivel", comoEsta, ouNulo},
};

constexpr std::array verificacoes{
    Verificacao{u"txtNome", naoVazio, u"Nome Inválido"},
    Verificacao{u"cboMarca", naoVazio, u"Marca/Modelo Inválido"},
};

} // namespace

frmCadaFast::frmCadaFast()
    : Form(u"frmCadaFast"_s), ui_(std::make_unique<Ui::frmCadaFast>()), cliente_(*this, camposDoCliente),
      veiculo_(*this, camposDoVeiculo, verificacoes)
{
    ui_->setupUi(this);
    ligaEventos();
}

frmCadaFast::~frmCadaFast() = default;

void frmCadaFast::ligaEventos()
{
    ligaCliente();
    filterKeys(ui_->txtCodCliente, SoInteiros);
    onLostFocus(ui_->txtNome, &frmCadaFast::txtNome_LostFocus);
    cliente_.liga();
    veiculo_.liga();
    onLostFocus(ui_->txtPlaca, &frmCadaFast::txtPlaca_LostFocus);
    veiculo_.ligaBotoesDasListas();
    onClick(ui_->btnIncluir, &frmCadaFast::btnIncluir_Click);
    onClick(ui_->btnVoltar, &frmCadaFast::btnVoltar_Click);
}

std::vector<Devolucoes> frmCadaFast::devolucoes()
{
    return {{Ocasiao::Inclusao, aOrdem}};
}

void frmCadaFast::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(captionOf(u" - [Cadastro Rápido]"_s));
    PreencheEstados(ui_->cboEstado);
    cliente_.limita(u"Clientes"_s);
    veiculo_.limita(u"Veiculos"_s);
    veiculo_.carregaListas();
}

void frmCadaFast::ligaCliente()
{
    new CaixaDeCodigo(*this, ui_->txtCodCliente,
                      {.consulta = [](const QString &codigo) -> QString {
                           return u"SELECT * FROM Clientes WHERE Codigo = "_s + codigo;
                       },
                       .naoLocalizado = u"Código do Cliente não localizado",
                       .mostra = [this](const dao::Recordset &cliente) { cliente_.mostra(cliente); },
                       .esvazia = [this] { limpaCliente(); },
                       .vazioEsvazia = true,
                       .cadastro = u"frmCadaCliente",
                       .procura = ui_->btnClienteFind,
                       .modoProcura = modoProcuraClienteDoCadastroRapido});
}

void frmCadaFast::limpaCliente()
{
    cliente_.limpa();
    ui_->cboEstado->setEditText(u"SP"_s);
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

void frmCadaFast::btnIncluir_Click()
{
    if (!veiculo_.confere(Gravacao::Inclusao) || !ui::Confirm(u"Confirma a Inclusão"_s, NomeEmpresa)) {
        return;
    }
    const QString conhecido = ui_->txtCodCliente->text();
    const qint32 veiculo = incluiVeiculo(conhecido.isEmpty() ? Value(incluiCliente()) : Value(conhecido));
    Devolve(*this, Ocasiao::Inclusao, QString::number(veiculo));
}

qint32 frmCadaFast::incluiCliente() const
{
    return AcrescentaLinha(u"Clientes"_s,
                           [this](dao::Recordset &cliente) { cliente_.grava(cliente, Gravacao::Inclusao); });
}

qint32 frmCadaFast::incluiVeiculo(const Value &codCliente) const
{
    return AcrescentaLinha(u"Veiculos"_s, [&](dao::Recordset &veiculo) {
        veiculo[u"CodCliente"] = codCliente;
        veiculo_.grava(veiculo, Gravacao::Inclusao);
    });
}

void frmCadaFast::btnVoltar_Click()
{
    Unload();
}

} // namespace registers
