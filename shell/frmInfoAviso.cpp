#include "shell/frmInfoAviso.h"

#include "ui_frmInfoAviso.h"

#include "core/andamento.h"
#include "core/devedores.h"
#include "core/funcoes.h"
#include "core/lista.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/wait.h"

#include <array>

namespace shell
{

using namespace Qt::StringLiterals;

namespace
{

constexpr std::array colunasDasContas{
    core::ColunaLista{.titulo = u"Descrição", .largura = 1800},
    core::ColunaLista{.titulo = u"Valor", .largura = 1200, .alinhamento = Qt::AlignRight},
    core::ColunaLista{.titulo = u"Vencimento", .largura = 1300},
};
constexpr std::array colunasDosClientes{
    core::ColunaLista{.titulo = u"Nome Cliente", .largura = 2200},
    core::ColunaLista{.titulo = u"Saldo Devedor", .largura = 1500, .alinhamento = Qt::AlignRight},
    core::ColunaLista{.titulo = u"Data Últ. Registro", .largura = 1700},
};

QString descricaoDaConta(const dao::Recordset &linha)
{
    return core::comoEsta(linha, 0);
}

QString descricaoDoCheque(const dao::Recordset &linha)
{
    return u"CHEQUE CÓD: "_s + core::comoCodigo(linha, 0);
}

bool todas(const dao::Recordset & /*linha*/)
{
    return true;
}

/// An account that stands for a cheque is shown with the cheques.
bool semCheque(const dao::Recordset &linha)
{
    return !core::comoEsta(linha, 0).contains(u"CHEQUE CÓD ");
}

/// What a list of accounts or cheques shows, and of which rows.
struct Aviso {
    Vencimento qual;
    QString (*descricao)(const dao::Recordset &linha);
    bool (*conta)(const dao::Recordset &linha) = todas;
};

constexpr std::array avisos{
    Aviso{Vencimento::ContasPagar, descricaoDaConta},
    Aviso{Vencimento::ContasReceber, descricaoDaConta, semCheque},
    Aviso{Vencimento::Cheques, descricaoDoCheque},
};

void poeVazia(ui::ListView &lista)
{
    lista.addItem(u"Registro não Localizado"_s);
}

void poeTotal(ui::ListView &lista, float total)
{
    lista.addItem(u"TOTAL:"_s, {runtime::Format(total, core::mascaraValor)});
}

/// Where all rows were left out the total stands alone: the statement has found something.
void enche(ui::ListView &lista, const Aviso &aviso, const PeriodoDosAvisos &periodo)
{
    dao::Recordset linhas = core::DBDados->OpenRecordset(ConsultaDe(aviso.qual, periodo));
    if (linhas.Eof()) {
        poeVazia(lista);
        return;
    }
    float total = 0;
    for (; !linhas.Eof(); linhas.MoveNext()) {
        if (!aviso.conta(linhas)) {
            continue;
        }
        lista.addItem(aviso.descricao(linhas), {core::comoValor(linhas, 1), core::comoData(linhas, 2)});
        if (const runtime::Value valor = linhas.value(1); !runtime::IsNull(valor)) {
            total = core::SaldoDepois(total, runtime::CSng(valor));
        }
    }
    poeTotal(lista, total);
}

} // namespace

frmInfoAviso::frmInfoAviso() : Form(u"frmInfoAviso"_s), ui_(std::make_unique<Ui::frmInfoAviso>())
{
    ui_->setupUi(this);
    setEscapeUnloads(true);

    onClick(ui_->Command1, &frmInfoAviso::Command1_Click);
    onClick(ui_->btnVoltar, &frmInfoAviso::btnVoltar_Click);
}

frmInfoAviso::~frmInfoAviso() = default;

void frmInfoAviso::Form_Load()
{
    periodo_ = PeriodoAtual();
    setWindowTitle(core::captionOf(u" - [Vencimento de Contas de: %1 à %2]"_s.arg(
        runtime::Format(periodo_.inicio, core::mascaraData), runtime::Format(periodo_.fim, core::mascaraData))));
    for (auto *lista : {ui_->Lista_0, ui_->Lista_1, ui_->Lista_2}) {
        core::MontaLista(*lista, {.colunas = colunasDasContas});
    }
    core::MontaLista(*ui_->Lista_3, {.colunas = colunasDosClientes});
    ui::CentraForm(*this, false);
    Command1_Click();
}

void frmInfoAviso::Command1_Click()
{
    const ui::Hourglass ampulheta;
    const std::array listas{ui_->Lista_0, ui_->Lista_1, ui_->Lista_2};
    static_assert(listas.size() == avisos.size());
    for (std::size_t i = 0; i < listas.size(); ++i) {
        listas.at(i)->clear();
        enche(*listas.at(i), avisos.at(i), periodo_);
    }
    ui_->Lista_3->clear();
    encheDevedores();
}

/// Whatever the period: a customer in debt stays so.
void frmInfoAviso::encheDevedores()
{
    dao::Recordset contas = core::ContasDosClientes();
    if (contas.Eof()) {
        poeVazia(*ui_->Lista_3);
        return;
    }
    core::Andamento obra(u"Lendo as contas dos clientes"_s, [] { return 0; });
    float total = 0;
    for (const core::Devedor &devedor : core::LeDevedores(std::move(contas), obra)) {
        ui_->Lista_3->addItem(devedor.nome, {runtime::Format(devedor.saldo, core::mascaraValor), devedor.data()});
        total = core::SaldoDepois(total, devedor.saldo);
    }
    poeTotal(*ui_->Lista_3, total);
}

void frmInfoAviso::btnVoltar_Click()
{
    Unload();
}

} // namespace shell
