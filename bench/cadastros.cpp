#include "bench/banco_cru.h"
#include "bench/oficina.h"
#include "bench/relator.h"

#include "core/config.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/dao/unit.h"
#include "platform/ui/form.h"
#include "platform/ui/forms.h"
#include "platform/ui/listmodel.h"
#include "platform/ui/listview.h"
#include "registers/pecas.h"
#include "tools/amostra/amostra.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QCoreApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPixmap>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace medidas
{

namespace
{

constexpr auto searched = u"OLIV"; ///< the middle of a surname
constexpr int addressColumn = 2;
constexpr int longLedger = 100'000;
constexpr int shortLedger = 100;

/// A workshop with 200,000 customers as the registers write them, made at first use.
const Oficina &workshopWithCustomers()
{
    static const Oficina workshop([] { amostra::Preenche({.clientes = amostra::maisClientes, .semente = 1}); });
    return workshop;
}

ui::Form *openRegister(const QString &fill)
{
    workshopWithCustomers().abre();
    core::GravaINI(u"Config"_s, u"PreencheCadastroAutomatico"_s, fill, true);
    core::ModoChamada = 0;
    return ui::Forms::instance().Show(u"frmCadaCliente"_s);
}

ui::ListView *listOf(const ui::Form *form)
{
    return form->findChild<ui::ListView *>(u"Lista"_s);
}

void close(ui::Form *form)
{
    form->Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// --- opening

void openFullRegister(benchmark::State &state)
{
    for (auto turn : state) {
        auto *form = openRegister(u"S"_s);
        auto painted = listOf(form)->grab();
        benchmark::DoNotOptimize(painted);
        close(form);
    }
}

/// The texts of a row of the list: the code of four digits, then what the columns hold.
QStringList textsOf(const Instrucao &row)
{
    constexpr int columns = 11;
    QStringList texts{u"%1"_s.arg(row.integer(0), 4, 10, QChar(u'0'))};
    for (int column = 1; column < columns; ++column) {
        texts.append(row.text(column));
    }
    return texts;
}

std::vector<QStringList> readAll(Instrucao &select)
{
    std::vector<QStringList> rows;
    while (select.step()) {
        rows.push_back(textsOf(select));
    }
    return rows;
}

void readCustomersBare(benchmark::State &state)
{
    const BancoCru database(workshopWithCustomers().arquivo());
    for (auto turn : state) {
        Instrucao select(database, "SELECT Codigo, Nome, Endereco, Numero, Bairro, Cidade, Fone1, Fone2, Celular, CPF, "
                                   "Email FROM Clientes ORDER BY Nome");
        auto rows = readAll(select);
        benchmark::DoNotOptimize(rows.data());
    }
}

// --- searching

void searchByName(benchmark::State &state)
{
    auto *form = openRegister(u"N"_s);
    form->findChild<QLineEdit *>(u"txtTexto"_s)->setText(QString::fromUtf16(searched));
    auto *button = form->findChild<QAbstractButton *>(u"btnPesquisar"_s);
    for (auto turn : state) {
        button->click();
        auto painted = listOf(form)->grab();
        benchmark::DoNotOptimize(painted);
    }
    close(form);
}

void searchByNameBare(benchmark::State &state)
{
    const BancoCru database(workshopWithCustomers().arquivo());
    for (auto turn : state) {
        Instrucao select(database, "SELECT Codigo, Nome, Endereco, Numero, Bairro, Cidade, Fone1, Fone2, Celular, CPF, "
                                   "Email FROM Clientes WHERE CONTEM(?1, Nome) ORDER BY Nome");
        select.bind(1, u'*' + QString::fromUtf16(searched) + u'*');
        auto rows = readAll(select);
        benchmark::DoNotOptimize(rows.data());
    }
}

// --- sorting

/// Both sides sort what stands in the order of names, as it comes.
void sortByAddress(benchmark::State &state)
{
    auto *form = openRegister(u"S"_s);
    auto *list = listOf(form);
    list->grab();
    for (auto turn : state) {
        state.PauseTiming();
        list->sortBy(1, Qt::AscendingOrder);
        state.ResumeTiming();
        list->sortBy(addressColumn, Qt::AscendingOrder);
        auto painted = list->grab();
        benchmark::DoNotOptimize(painted);
    }
    close(form);
}

void sortAddressesBare(benchmark::State &state)
{
    auto *form = openRegister(u"S"_s);
    const auto *list = listOf(form);
    std::vector<QString> texts;
    texts.reserve(static_cast<std::size_t>(list->count()));
    for (int row = 0; row < list->count(); ++row) {
        texts.push_back(list->item(row).subItem(addressColumn));
    }
    close(form);
    for (auto turn : state) {
        state.PauseTiming();
        auto sorted = texts;
        state.ResumeTiming();
        std::stable_sort(sorted.begin(), sorted.end(), ui::lessAsText);
        benchmark::DoNotOptimize(sorted.data());
    }
}

// --- posting to the stock

/// A part with a ledger of so many rows beside the one with the long ledger.
QString partWithLedger(int rows)
{
    const auto text = [](QStringView control) {
        if (control == u"optPeca" || control == u"optSim") {
            return u"-1"_s;
        }
        return control == u"txtNome" || control == u"cboMarca" ? u"FILTRO"_s : u"0"_s;
    };
    QString code = QString::number(registers::IncluiPeca(text));
    const dao::Unit batch;
    for (int row = 1; row < rows; ++row) {
        core::AbreEstoque(code, u"ENTRADA"_s, 1.0F);
    }
    return code;
}

struct Parts {
    QString large;
    QString small;
};

const Parts &parts()
{
    workshopWithCustomers().abre();
    static const Parts made{partWithLedger(longLedger), partWithLedger(shortLedger)};
    return made;
}

void post(benchmark::State &state, const QString &part)
{
    for (auto turn : state) {
        core::LancaNoRazao(core::razaoEstoque,
                           {.dono = part, .data = u"15/05/2024"_s, .descricao = u"AJUSTE"_s, .valor = u"1"_s},
                           {core::SaldoAnterior::Busca});
    }
}

} // namespace

void medeCadastros()
{
    compara("cadastro_abre", 2.0, openFullRegister, readCustomersBare);
    compara("cadastro_busca", 1.5, searchByName, searchByNameBare);
    compara("cadastro_ordena", 2.0, sortByAddress, sortAddressesBare);
    compara(
        "estoque_posta", 1.5, [](benchmark::State &state) { post(state, parts().large); },
        [](benchmark::State &state) { post(state, parts().small); });
}

} // namespace medidas
