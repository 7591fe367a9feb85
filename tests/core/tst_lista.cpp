// Lists told as data, filled from a statement of a real database.
#include "core/lista.h"

#include "core/banco.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/listview.h"
#include "support/otherprogram.h"
#include "support/program.h"

#include <QComboBox>
#include <QTest>

#include <array>

using namespace Qt::StringLiterals;
using namespace core;

namespace
{

const QString cheques = u"SELECT * FROM Cheques ORDER BY Codigo"_s;

QString bancoEConta(const dao::Recordset &linha, int /*lugar*/)
{
    return comoEsta(linha, linha.fieldPlace(u"Banco")) + u'/' + comoEsta(linha, linha.fieldPlace(u"Conta"));
}

bool pago(const dao::Recordset &linha)
{
    return Verdadeiro(linha.value(u"Pago"));
}

int iconeDaOrdem(const dao::Recordset &linha)
{
    return comoEsta(linha, linha.fieldPlace(u"CodOs")) == u"0" ? 0 : 1;
}

QString ordem(const dao::Recordset &linha)
{
    return comoEsta(linha, linha.fieldPlace(u"CodOs"));
}

constexpr std::array colunas{
    ColunaLista{u"Código", 1000, u"Codigo", comoCodigo},
    ColunaLista{u"Banco", 3000, u"Banco", comoEsta},
    ColunaLista{u"Vencimento", 1300, u"Vencimento", comoData},
    ColunaLista{u"Valor", 1500, u"Valor", comoValor, Qt::AlignRight},
    ColunaLista{u"Pago", 700, u"Pago", comoSimNao},
};

constexpr std::array somas{Soma{u"Valor"}, Soma{u"Valor", pago}};
constexpr std::array<QStringView, 3> semCheques{u"", u"Registro Não Localizado", u" "};
constexpr Lista lista{.colunas = colunas, .icone = iconeDaOrdem, .tag = ordem, .somas = somas, .vazia = semCheques};

} // namespace

class TestLista : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void colunasDaTabela();
    void linhasDaConsulta();
    void colunaDaLinhaInteira();
    void colunaQueSoAJanelaSabe();
    void semResultado();
    void semResultadoNemLinhaParaIsso();
    void novaConsultaTomaOLugar();
    void iconesETags();

    void somasPelaOrdemDasLinhas();
    void somasComCondicao();
    void nuloNaoSoma();
    void totaisPorBaixo();

    void mostraOQueHavia_data();
    void mostraOQueHavia();
    void ordenaOQueHavia();
    void linhaQueOutroProgramaExcluiu();
    void nadaFicaPreso();
    void bancoFechado();

    void localiza_data();
    void localiza();
    void localizaNaOrdemDaLista();

    void pesquisas();
    void condicoes_data();
    void condicoes();

private:
    void cheque(const QString &banco, const QString &valor, bool quitado = false, int os = 0) const;
    Somas enche(const Lista &descricao = lista, const QString &consulta = cheques) const
    {
        return EncheLista(*lista_, DBDados->OpenRecordset(consulta), descricao);
    }
    QStringList linhas() const;

    std::unique_ptr<support::Program> programa_;
    std::unique_ptr<ui::ListView> lista_;
};

void TestLista::init()
{
    programa_ = std::make_unique<support::Program>();
    lista_ = std::make_unique<ui::ListView>();
    lista_->resize(800, 300);
    MontaLista(*lista_, lista);
    lista_->show();
}

void TestLista::cleanup()
{
    lista_.reset();
    programa_.reset();
}

void TestLista::cheque(const QString &banco, const QString &valor, bool quitado, int os) const
{
    programa_->sql(u"INSERT INTO Cheques (CodOs, Data, Banco, Conta, Valor, Vencimento, Pago) VALUES (%1, "
                   "#05/15/2024#, '%2', '77-1', %3, #06/15/2024#, %4)"_s.arg(QString::number(os), banco, valor,
                                                                             quitado ? u"True"_s : u"False"_s));
}

QStringList TestLista::linhas() const
{
    QStringList todas;
    for (int linha = 0; linha < lista_->count(); ++linha) {
        QStringList textos;
        for (int coluna = 0; coluna < lista_->columnCount(); ++coluna) {
            textos << lista_->item(linha).subItem(coluna);
        }
        todas << textos.join(u'|');
    }
    return todas;
}

void TestLista::colunasDaTabela()
{
    QCOMPARE(lista_->columnCount(), 5);
    QCOMPARE(lista_->model()->headerData(2, Qt::Horizontal).toString(), u"Vencimento"_s);
    const auto lado = lista_->model()->headerData(3, Qt::Horizontal, Qt::TextAlignmentRole);
    QCOMPARE(lado.value<Qt::Alignment>(), Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(lista_->count(), 0);
}

void TestLista::linhasDaConsulta()
{
    cheque(u"BRADESCO"_s, u"1234.5"_s);
    cheque(u"ITAÚ"_s, u"10"_s, true);
    enche();
    QCOMPARE(linhas(), (QStringList{u"0001|BRADESCO|15/06/2024|1.234,50|Não"_s, u"0002|ITAÚ|15/06/2024|10,00|Sim"_s}));
}

void TestLista::colunaDaLinhaInteira()
{
    static constexpr std::array juntas{ColunaLista{u"Banco/Conta", 3000, {}, bancoEConta}};
    cheque(u"ITAÚ"_s, u"10"_s);
    enche({.colunas = juntas});
    QCOMPARE(lista_->item(0).text(), u"ITAÚ/77-1"_s);
}

void TestLista::colunaQueSoAJanelaSabe()
{
    static constexpr std::array daJanela{ColunaLista{u"Código", 1000, u"Codigo", comoCodigo},
                                         ColunaLista{u"Valor", 1000, u"Valor"}};
    cheque(u"ITAÚ"_s, u"10"_s);
    QString moeda = u"R$ "_s;
    EncheLista(*lista_, DBDados->OpenRecordset(cheques), {.colunas = daJanela},
               [moeda](const dao::Recordset &linha, int lugar) { return QString(moeda + comoValor(linha, lugar)); });
    moeda = u"US$ "_s;
    QCOMPARE(lista_->item(0).subItem(1), u"R$ 10,00"_s);
}

void TestLista::semResultado()
{
    const Somas totais = enche();
    QCOMPARE(linhas(), QStringList{u"|Registro Não Localizado| ||"_s});
    QCOMPARE(totais, (Somas{0, 0}));
}

void TestLista::semResultadoNemLinhaParaIsso()
{
    enche({.colunas = colunas});
    QCOMPARE(lista_->count(), 0);
}

void TestLista::novaConsultaTomaOLugar()
{
    cheque(u"ITAÚ"_s, u"10"_s);
    cheque(u"BRADESCO"_s, u"20"_s);
    enche();
    lista_->sortBy(1, Qt::AscendingOrder);
    enche();
    QCOMPARE(lista_->item(0).subItem(1), u"ITAÚ"_s);
    enche(lista, u"SELECT * FROM Cheques WHERE Banco = 'BRADESCO'"_s);
    QCOMPARE(lista_->count(), 1);
    enche(lista, u"SELECT * FROM Cheques WHERE Codigo = 0"_s);
    QCOMPARE(lista_->count(), 1);
    QCOMPARE(lista_->item(0).subItem(1), u"Registro Não Localizado"_s);
}

void TestLista::iconesETags()
{
    cheque(u"ITAÚ"_s, u"10"_s);
    cheque(u"BRADESCO"_s, u"20"_s, false, 12);
    enche();
    QCOMPARE(lista_->item(0).smallIcon(), 0);
    QCOMPARE(lista_->item(1).smallIcon(), 1);
    QCOMPARE(lista_->item(1).tag(), u"12"_s);
    lista_->item(1).setTag(u"outra"_s);
    lista_->sortBy(1, Qt::AscendingOrder);
    QCOMPARE(lista_->item(0).tag(), u"outra"_s);
    QCOMPARE(lista_->item(0).smallIcon(), 1);
}

/// 16,777,216 is where a Single has no room for one more: the order of the additions shows.
void TestLista::somasPelaOrdemDasLinhas()
{
    for (const auto *valor : {u"16777216", u"1", u"1"}) {
        cheque(u"ITAÚ"_s, QString::fromUtf16(valor));
    }
    QCOMPARE(support::exact(enche().at(0)), u"16777216"_s);
    QCOMPARE(support::exact(enche(lista, u"SELECT * FROM Cheques ORDER BY Codigo DESC"_s).at(0)), u"16777218"_s);
    QCOMPARE(lista_->count(), 3);
}

void TestLista::somasComCondicao()
{
    cheque(u"ITAÚ"_s, u"10.25"_s);
    cheque(u"ITAÚ"_s, u"20.5"_s, true);
    cheque(u"ITAÚ"_s, u"0.25"_s, true);
    QCOMPARE(enche(), (Somas{31.0F, 20.75F}));
}

void TestLista::nuloNaoSoma()
{
    cheque(u"ITAÚ"_s, u"10"_s);
    cheque(u"ITAÚ"_s, u"Null"_s);
    QCOMPARE(enche().at(0), 10.0F);
}

void TestLista::totaisPorBaixo()
{
    cheque(u"ITAÚ"_s, u"10"_s);
    cheque(u"BRADESCO"_s, u"20"_s);
    const Somas totais = enche();
    lista_->addItem(QString(), {u"Total de Cheques:"_s, QString(), runtime::Format(totais.at(0), u"###,##0.00")});
    QCOMPARE(linhas().last(), u"|Total de Cheques:||30,00|"_s);
    lista_->sortBy(1, Qt::DescendingOrder);
    QCOMPARE(lista_->item(0).subItem(1), u"Total de Cheques:"_s);
}

void TestLista::mostraOQueHavia_data()
{
    QTest::addColumn<QString>("statement");
    QTest::newRow("changed") << u"UPDATE Cheques SET Banco = 'OUTRO', Valor = 1, CodOs = 9"_s;
    QTest::newRow("deleted") << u"DELETE * FROM Cheques WHERE Codigo = 1"_s;
    QTest::newRow("all deleted") << u"DELETE * FROM Cheques"_s;
    QTest::newRow("added") << u"INSERT INTO Cheques (Banco) VALUES ('NOVO')"_s;
    QTest::newRow("gone with its table") << u"DROP TABLE Cheques"_s;
}

/// Nothing of the list has been looked at before the change.
void TestLista::mostraOQueHavia()
{
    QFETCH(const QString, statement);
    cheque(u"ITAÚ"_s, u"10"_s, false, 12);
    cheque(u"BRADESCO"_s, u"20"_s);
    enche();
    DBDados->Execute(statement);
    QCOMPARE(linhas(), (QStringList{u"0001|ITAÚ|15/06/2024|10,00|Não"_s, u"0002|BRADESCO|15/06/2024|20,00|Não"_s}));
    QCOMPARE(lista_->item(0).tag(), u"12"_s);
    QCOMPARE(lista_->item(0).smallIcon(), 1);
}

void TestLista::ordenaOQueHavia()
{
    cheque(u"ITAÚ"_s, u"10"_s);
    cheque(u"BRADESCO"_s, u"20"_s);
    cheque(u"SANTANDER"_s, u"30"_s);
    enche();
    auto linha = DBDados->OpenRecordset(u"SELECT * FROM Cheques WHERE Codigo = 3"_s);
    linha.Edit();
    linha[u"Banco"] = u"ABN"_s;
    linha.Update();
    DBDados->Execute(u"DELETE * FROM Cheques WHERE Codigo = 2"_s);
    lista_->sortBy(1, Qt::AscendingOrder);
    QCOMPARE(linhas(), (QStringList{u"0002|BRADESCO|15/06/2024|20,00|Não"_s, u"0001|ITAÚ|15/06/2024|10,00|Não"_s,
                                    u"0003|SANTANDER|15/06/2024|30,00|Não"_s}));
}

void TestLista::linhaQueOutroProgramaExcluiu()
{
    cheque(u"ITAÚ"_s, u"10"_s);
    cheque(u"BRADESCO"_s, u"20"_s);
    enche();
    support::OtherProgram outro(programa_->path(u"DADOS/DADOS.MDB"_s));
    QVERIFY(outro.run("DELETE FROM Cheques WHERE Codigo = 1"));
    QCOMPARE(lista_->item(0).text(), u"#Excluído"_s);
    QCOMPARE(lista_->item(0).subItem(1), u"#Excluído"_s);
    QCOMPARE(lista_->item(0).tag(), QString());
    QCOMPARE(lista_->item(1).subItem(1), u"BRADESCO"_s);
    lista_->selectRow(0);
    QCOMPARE(lista_->selectedRow(), -1);
    lista_->selectRow(1);
    QCOMPARE(lista_->selectedRow(), 1);
    lista_->sortBy(1, Qt::DescendingOrder);
    QCOMPARE(lista_->item(0).subItem(1), u"BRADESCO"_s);
    QVERIFY(!LocalizaLista(lista_.get(), u"ITA"_s, 2, true, true));
}

void TestLista::nadaFicaPreso()
{
    for (int numero = 0; numero < 300; ++numero) {
        cheque(u"BANCO %1"_s.arg(numero), u"1"_s);
    }
    support::OtherProgram outro(programa_->path(u"DADOS/DADOS.MDB"_s));
    const auto livre = [&outro] {
        const bool tomou = outro.take();
        outro.giveBack();
        return tomou;
    };
    enche();
    QVERIFY(livre());
    lista_->grab();
    QVERIFY(livre());
    lista_->ensureVisible(200);
    lista_->grab();
    QVERIFY(livre());
    lista_->sortBy(1, Qt::AscendingOrder);
    QVERIFY(livre());
    LocalizaLista(lista_.get(), u"BANCO 299"_s, 2, true, true);
    QVERIFY(livre());
}

void TestLista::bancoFechado()
{
    cheque(u"ITAÚ"_s, u"10"_s);
    enche();
    DBDados.reset();
    QCOMPARE(lista_->item(0).text(), u"#Excluído"_s);
    lista_->sortBy(1, Qt::AscendingOrder);
    lista_->grab();
    QCOMPARE(lista_->count(), 1);
}

void TestLista::localiza_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<int>("coluna");
    QTest::addColumn<int>("linha");
    QTest::newRow("beginning") << u"brad"_s << 2 << 1;
    QTest::newRow("first of two") << u"ITAÚ"_s << 2 << 0;
    QTest::newRow("code") << u"0003"_s << 1 << 2;
    QTest::newRow("as shown") << u"20,0"_s << 4 << 1;
    QTest::newRow("middle") << u"DESCO"_s << 2 << -1;
}

void TestLista::localiza()
{
    QFETCH(const QString, texto);
    QFETCH(const int, coluna);
    QFETCH(const int, linha);
    cheque(u"ITAÚ"_s, u"10"_s);
    cheque(u"BRADESCO"_s, u"20"_s);
    cheque(u"ITAÚ"_s, u"30"_s);
    enche();
    QCOMPARE(LocalizaLista(lista_.get(), texto, coluna, true, true), linha >= 0);
    QCOMPARE(lista_->selectedRow(), linha);
}

void TestLista::localizaNaOrdemDaLista()
{
    cheque(u"ITAÚ"_s, u"10"_s);
    cheque(u"ITAÚ"_s, u"20"_s);
    enche();
    lista_->sortBy(3, Qt::DescendingOrder);
    QVERIFY(LocalizaLista(lista_.get(), u"ITA"_s, 2, true, true));
    QCOMPARE(lista_->selectedRow(), 0);
    QCOMPARE(lista_->item(0).text(), u"0002"_s);
}

void TestLista::pesquisas()
{
    static constexpr std::array tabela{
        Pesquisa{u"Código", u"Codigo = ", Comparacao::Igual},
        Pesquisa{u"Nome", u"Nome LIKE '*", Comparacao::Contem},
        Pesquisa{u"", u"Email LIKE '*", Comparacao::Contem},
    };
    QComboBox combo;
    MontaPesquisas(combo, tabela);
    QCOMPARE(combo.count(), 2);
    QCOMPARE(combo.itemText(1), u"Nome"_s);
    QCOMPARE(combo.currentIndex(), 0);
}

void TestLista::condicoes_data()
{
    QTest::addColumn<int>("comparacao");
    QTest::addColumn<QString>("procurado");
    QTest::addColumn<QString>("condicao");
    QTest::newRow("as typed") << int(Comparacao::Igual) << u"12"_s << u"X 12"_s;
    QTest::newRow("a code") << int(Comparacao::Codigo) << u"0012"_s << u"X 12"_s;
    QTest::newRow("no code") << int(Comparacao::Codigo) << u"1,5"_s << u"X 0"_s;
    QTest::newRow("within") << int(Comparacao::Contem) << u"ANA"_s << u"X ANA*'"_s;
    QTest::newRow("day") << int(Comparacao::Data) << u"02/05/2024"_s << u"X #05/02/2024#"_s;
    QTest::newRow("whole day") << int(Comparacao::Dia) << u"02/05/2024"_s
                               << u"X #05/02/2024 00:00:00# AND #05/02/2024 23:59:59#"_s;
}

void TestLista::condicoes()
{
    QFETCH(const int, comparacao);
    QFETCH(const QString, procurado);
    QTEST(Condicao({u"", u"X ", Comparacao(comparacao)}, procurado), "condicao");
}

TARVELO_TEST_MAIN(TestLista)
#include "tst_lista.moc"
