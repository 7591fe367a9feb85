#include "bench/banco_cru.h"
#include "bench/janela.h"
#include "bench/oficina.h"
#include "bench/relator.h"

#include "core/config.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/dao/unit.h"
#include "platform/ui/forms.h"
#include "platform/ui/textorder.h"
#include "registers/pecas.h"
#include "tools/amostra/amostra.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPixmap>

#include <algorithm>
#include <cstdio>
#include <vector>

using namespace Qt::StringLiterals;

namespace medidas
{

const Oficina &comClientes()
{
    static const Oficina workshop([] { amostra::Preenche({.clientes = amostra::maisClientes, .semente = 1}); });
    return workshop;
}

namespace
{

constexpr auto searched = u"OLIV"; ///< the middle of a surname
constexpr int addressColumn = 2;
constexpr int longLedger = 100'000;
constexpr int shortLedger = 100;

ui::Form *showRegister(const QString &fill)
{
    core::GravaINI(u"Config"_s, u"PreencheCadastroAutomatico"_s, fill, true);
    core::ModoChamada = 0;
    return ui::Forms::instance().Show(u"frmCadaCliente"_s);
}

ui::Form *openRegister(const QString &fill)
{
    comClientes().abre();
    return showRegister(fill);
}

// --- opening

void openFullRegister(benchmark::State &state)
{
    for (auto turn : state) {
        auto *form = openRegister(u"S"_s);
        auto painted = listOf(form)->grab();
        benchmark::DoNotOptimize(painted);
        if (listOf(form)->count() != amostra::maisClientes) {
            qFatal("The register shows %d customers", listOf(form)->count());
        }
        close(form);
    }
}

/// The texts of a row of the list: the code of four digits, then what the columns hold.
QStringList textsOf(const Instrucao &row)
{
    constexpr int columns = 11;
    QStringList texts{codeOf(row, 0)};
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

std::vector<QStringList> readCustomers(const BancoCru &database)
{
    Instrucao select(database, "SELECT Codigo, Nome, Endereco, Numero, Bairro, Cidade, Fone1, Fone2, Celular, CPF, "
                               "Email FROM Clientes ORDER BY Nome");
    return readAll(select);
}

void readCustomersBare(benchmark::State &state)
{
    const BancoCru database(comClientes().arquivo());
    for (auto turn : state) {
        auto rows = readCustomers(database);
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
    const BancoCru database(comClientes().arquivo());
    for (auto turn : state) {
        Instrucao select(database, "SELECT Codigo, Nome, Endereco, Numero, Bairro, Cidade, Fone1, Fone2, Celular, CPF, "
                                   "Email FROM Clientes WHERE CONTEM(?1, Nome) ORDER BY Nome");
        select.bind(1, u'*' + QString::fromUtf16(searched) + u'*');
        auto rows = readAll(select);
        benchmark::DoNotOptimize(rows.data());
    }
}

// --- sorting

/// Both sides sort what stands in the order of names; the program reads the column first, so it opens anew each time.
void sortByAddress(benchmark::State &state)
{
    for (auto turn : state) {
        state.PauseTiming();
        auto *form = openRegister(u"S"_s);
        auto *list = listOf(form);
        list->grab();
        state.ResumeTiming();
        list->sortBy(addressColumn, Qt::AscendingOrder);
        auto painted = list->grab();
        benchmark::DoNotOptimize(painted);
        state.PauseTiming();
        close(form);
        state.ResumeTiming();
    }
}

void sortAddressesBare(benchmark::State &state)
{
    std::vector<QString> texts;
    for (const auto &row : readCustomers(BancoCru(comClientes().arquivo()))) {
        texts.push_back(row.at(addressColumn));
    }
    for (auto turn : state) {
        state.PauseTiming();
        auto sorted = texts;
        state.ResumeTiming();
        std::stable_sort(sorted.begin(), sorted.end(), ui::lessAsText);
        benchmark::DoNotOptimize(sorted.data());
    }
}

// --- scrolling

/// Jumps about the middle, to another page each time, and paints it.
void scroll(benchmark::State &state, ui::ListView &list)
{
    constexpr int step = 300;
    int turn = 0;
    for (auto each : state) {
        list.ensureVisible(list.count() / 2 + turn++ * step % (list.count() / 4));
        auto painted = list.grab();
        benchmark::DoNotOptimize(painted);
    }
}

void scrollRegister(benchmark::State &state)
{
    auto *form = openRegister(u"S"_s);
    scroll(state, *listOf(form));
    close(form);
}

void scrollTexts(benchmark::State &state)
{
    auto *form = openRegister(u"N"_s);
    auto *list = listOf(form);
    for (auto &row : readCustomers(BancoCru(comClientes().arquivo()))) {
        const auto code = row.takeFirst();
        list->addItem(code, row);
    }
    list->grab();
    scroll(state, *list);
    close(form);
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
    comClientes().abre();
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
    compara({"cadastro_abre", 0.15,
             "the register of 200,000 customers opened with its list and painted, against reading the same rows and "
             "texts through the bare library"},
            openFullRegister, readCustomersBare);
    compara({"cadastro_busca", 1.2, "a search in that register by a part of the name, against the bare library"},
            searchByName, searchByNameBare);
    compara({"cadastro_ordena", 2.5,
             "that list sorted by another column, reading included, against a stable sort of the same texts in memory"},
            sortByAddress, sortAddressesBare);
    compara({"cadastro_rola", 2.0,
             "a jump to a page in the middle of that list, against the same page of a list held in memory"},
            scrollRegister, scrollTexts);
    compara(
        {"estoque_posta", 1.5, "a posting to a part behind 100,000 rows of its ledger, against one behind 100"},
        [](benchmark::State &state) { post(state, parts().large); },
        [](benchmark::State &state) { post(state, parts().small); });
}

int memoriaDeCadastro(const QString &kind, const QString &pasta)
{
    abrePasta(pasta);
    auto *form = showRegister(u"N"_s);
    listOf(form)->grab();
    std::vector<QStringList> rows;
    const auto before = memoriaAssentada();
    if (kind == u"cadastro"_s) {
        form->findChild<QAbstractButton *>(u"btnTodos"_s)->click();
        listOf(form)->grab();
    } else {
        rows = readCustomers(BancoCru(core::ArquivoDB));
    }
    const auto after = memoriaAssentada();
    std::printf("%lld %lld\n", after - before, after);
    close(form);
    return 0;
}

} // namespace medidas
