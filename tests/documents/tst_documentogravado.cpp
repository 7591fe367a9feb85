#include "documents/documentogravado.h"

#include "core/modulo.h"
#include "platform/dao/database.h"
#include "support/otherprogram.h"
#include "support/program.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace documents;

Q_DECLARE_METATYPE(const documents::DocumentoGravado *)

namespace
{

using Rows = std::vector<QStringList>;

const LinhaItem oil{u"0012"_s, u"P"_s, u"2,500"_s, u"ÓLEO"_s, u"1.234,50"_s, u"3.086,25"_s};
const LinhaItem wash{u"0000"_s, u"A"_s, u"01"_s, u"LAVAGEM"_s, u"0,10"_s, u"0,10"_s};

/// The two kinds of documents, as rows of a test.
void documentRows()
{
    QTest::addColumn<const DocumentoGravado *>("kind");
    QTest::newRow("order") << &ordemGravada;
    QTest::newRow("estimate") << &orcamentoGravado;
}

} // namespace

/// Items that are written one by one, without a window.
class TstDocumentoGravado : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { program_.reset(); }

    void tellsWhetherADocumentExists_data() { documentRows(); }
    void tellsWhetherADocumentExists();
    void addsAnItemAndItsTotal_data() { documentRows(); }
    void addsAnItemAndItsTotal();
    void addsNothingToADocumentThatIsGone_data() { documentRows(); }
    void addsNothingToADocumentThatIsGone();
    void removesOneItem_data() { documentRows(); }
    void removesOneItem();
    void removingTellsOfADocumentThatIsGone_data() { documentRows(); }
    void removingTellsOfADocumentThatIsGone();
    void changesEveryColumnOfAnItem_data() { documentRows(); }
    void changesEveryColumnOfAnItem();
    void changesNothingWhereTheItemIsGone_data() { documentRows(); }
    void changesNothingWhereTheItemIsGone();
    void changesNothingWhereTheDocumentIsGone_data() { documentRows(); }
    void changesNothingWhereTheDocumentIsGone();
    void deletesADocumentWithItsItems_data() { documentRows(); }
    void deletesADocumentWithItsItems();

private:
    Rows items(const DocumentoGravado &kind) const
    {
        return program_->rows(u"SELECT Codigo, %1, CodPeca, Quantidade, Descricao, ValorUnit, PSA FROM %2"_s.arg(
            kind.coluna, kind.itens));
    }
    Rows totals(const DocumentoGravado &kind) const
    {
        return program_->rows(u"SELECT Codigo, Valor FROM %1"_s.arg(kind.tabela));
    }

    std::unique_ptr<support::Program> program_;
};

/// Documents 1 and 2 of each kind, so that nothing is right by accident.
void TstDocumentoGravado::init()
{
    program_ = std::make_unique<support::Program>();
    for (const DocumentoGravado *kind : {&ordemGravada, &orcamentoGravado}) {
        for (int i = 0; i < 2; ++i) {
            program_->sql(u"INSERT INTO %1 (CodCliente, Valor) VALUES (1, 7)"_s.arg(kind->tabela));
        }
    }
}

void TstDocumentoGravado::tellsWhetherADocumentExists()
{
    QFETCH(const DocumentoGravado *, kind);
    QVERIFY(ExisteDocumento(*kind, 2));
    QVERIFY(!ExisteDocumento(*kind, 3));
}

void TstDocumentoGravado::addsAnItemAndItsTotal()
{
    QFETCH(const DocumentoGravado *, kind);
    QCOMPARE(AcrescentaItem(*kind, 1, wash, u"0,10"_s), u"1"_s);
    QCOMPARE(AcrescentaItem(*kind, 2, oil, u"3.086,25"_s), u"2"_s);
    const Rows expected{{u"1"_s, u"1"_s, u"0"_s, u"1"_s, u"LAVAGEM"_s, u"0.1"_s, u"A"_s},
                        {u"2"_s, u"2"_s, u"12"_s, u"2.5"_s, u"ÓLEO"_s, u"1234.5"_s, u"P"_s}};
    QCOMPARE(items(*kind), expected);
    QCOMPARE(totals(*kind), (Rows{{u"1"_s, u"0.1"_s}, {u"2"_s, u"3086.25"_s}}));
}

void TstDocumentoGravado::addsNothingToADocumentThatIsGone()
{
    QFETCH(const DocumentoGravado *, kind);
    const quint32 before = support::writesOf(core::DBDados->path());
    QVERIFY(!AcrescentaItem(*kind, 3, wash, u"0,10"_s));
    QCOMPARE(items(*kind), Rows());
    QCOMPARE(support::writesOf(core::DBDados->path()), before);
}

void TstDocumentoGravado::removesOneItem()
{
    QFETCH(const DocumentoGravado *, kind);
    AcrescentaItem(*kind, 1, wash, u"0,10"_s);
    AcrescentaItem(*kind, 2, oil, u"3.086,25"_s);
    QVERIFY(RemoveItem(*kind, 2, u"2"_s, u"0,00"_s));
    QCOMPARE(items(*kind).size(), 1U);
    QCOMPARE(items(*kind).front().front(), u"1"_s);
    QCOMPARE(totals(*kind), (Rows{{u"1"_s, u"0.1"_s}, {u"2"_s, u"0"_s}}));
    QVERIFY(RemoveItem(*kind, 2, u"2"_s, u"0,00"_s));
}

void TstDocumentoGravado::removingTellsOfADocumentThatIsGone()
{
    QFETCH(const DocumentoGravado *, kind);
    AcrescentaItem(*kind, 1, wash, u"0,10"_s);
    program_->sql(u"DELETE * FROM %1 WHERE Codigo = 1"_s.arg(kind->tabela));
    QVERIFY(!RemoveItem(*kind, 1, u"1"_s, u"0,00"_s));
    QCOMPARE(items(*kind), Rows());
    QCOMPARE(totals(*kind), (Rows{{u"2"_s, u"7"_s}}));
}

void TstDocumentoGravado::changesEveryColumnOfAnItem()
{
    QFETCH(const DocumentoGravado *, kind);
    AcrescentaItem(*kind, 1, wash, u"0,10"_s);
    AcrescentaItem(*kind, 1, wash, u"0,20"_s);
    QCOMPARE(AlteraItem(*kind, 1, u"1"_s, oil, u"3.086,35"_s), Mudanca::Gravada);
    const Rows expected{{u"1"_s, u"1"_s, u"12"_s, u"2.5"_s, u"ÓLEO"_s, u"1234.5"_s, u"P"_s},
                        {u"2"_s, u"1"_s, u"0"_s, u"1"_s, u"LAVAGEM"_s, u"0.1"_s, u"A"_s}};
    QCOMPARE(items(*kind), expected);
    QCOMPARE(totals(*kind), (Rows{{u"1"_s, u"3086.35"_s}, {u"2"_s, u"7"_s}}));
}

void TstDocumentoGravado::changesNothingWhereTheItemIsGone()
{
    QFETCH(const DocumentoGravado *, kind);
    QCOMPARE(AlteraItem(*kind, 1, u"5"_s, oil, u"3.086,35"_s), Mudanca::SemItem);
    QCOMPARE(items(*kind), Rows());
    QCOMPARE(totals(*kind), (Rows{{u"1"_s, u"7"_s}, {u"2"_s, u"7"_s}}));
}

void TstDocumentoGravado::changesNothingWhereTheDocumentIsGone()
{
    QFETCH(const DocumentoGravado *, kind);
    AcrescentaItem(*kind, 1, wash, u"0,10"_s);
    program_->sql(u"DELETE * FROM %1 WHERE Codigo = 1"_s.arg(kind->tabela));
    const Rows before = items(*kind);
    QCOMPARE(AlteraItem(*kind, 1, u"1"_s, oil, u"3.086,35"_s), Mudanca::SemDocumento);
    QCOMPARE(items(*kind), before);
}

void TstDocumentoGravado::deletesADocumentWithItsItems()
{
    QFETCH(const DocumentoGravado *, kind);
    AcrescentaItem(*kind, 1, wash, u"0,10"_s);
    AcrescentaItem(*kind, 1, oil, u"3.086,35"_s);
    AcrescentaItem(*kind, 2, wash, u"0,10"_s);
    ExcluiDocumento(*kind, 1);
    QCOMPARE(items(*kind).size(), 1U);
    QCOMPARE(items(*kind).front().at(1), u"2"_s);
    QCOMPARE(totals(*kind), (Rows{{u"2"_s, u"0.1"_s}}));
    ExcluiDocumento(*kind, 1);
    QCOMPARE(totals(*kind).size(), 1U);
}

TARVELO_TEST_MAIN(TstDocumentoGravado)
#include "tst_documentogravado.moc"
