#include "platform/runtime/error.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace runtime;

class tst_error : public QObject
{
    Q_OBJECT

private slots:
    void everyNumberHasItsText_data();
    void everyNumberHasItsText();
    void aGenuineJetFileIsToldWithWhatToDo();
    void argumentsFillThePlaces();
    void argumentsAreNotReadForPlaces();
    void placesWithoutArgumentStayEmpty();
    void unknownNumberHasNoText();
    void errorTellsNumberAndText();
};

void tst_error::everyNumberHasItsText_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");

    QTest::newRow("5") << 5 << u"Chamada de procedimento ou argumento inválido"_s;
    QTest::newRow("6") << 6 << u"Estouro"_s;
    QTest::newRow("13") << 13 << u"Tipos incompatíveis"_s;
    QTest::newRow("53") << 53 << u"Arquivo não encontrado"_s;
    QTest::newRow("91") << 91 << u"Objeto não definido"_s;
    QTest::newRow("94") << 94 << u"Uso inválido de Null"_s;
    QTest::newRow("482") << 482 << u"Erro de impressora"_s;
    QTest::newRow("3010") << 3010 << u"A tabela '<nome>' já existe."_s;
    QTest::newRow("3020") << 3020 << u"Update sem AddNew ou Edit."_s;
    QTest::newRow("3021") << 3021 << u"Não há registro atual."_s;
    QTest::newRow("3024") << 3024 << u"Não foi possível encontrar o arquivo '<nome>'."_s;
    QTest::newRow("3051") << 3051
                          << u"Não é possível abrir ou gravar o arquivo '<nome>': está em uso ou não há permissão."_s;
    QTest::newRow("3061") << 3061 << u"Parâmetros insuficientes. Eram esperados <nome>."_s;
    QTest::newRow("3075") << 3075 << u"<nome> na expressão '<outro>'."_s;
    QTest::newRow("3078") << 3078
                          << u"A tabela ou consulta '<nome>' não foi encontrada. Verifique se o nome está correto."_s;
    QTest::newRow("3163") << 3163 << u"O campo '<nome>' é pequeno demais para os dados que você tentou gravar."_s;
    QTest::newRow("3167") << 3167 << u"O registro foi excluído."_s;
    QTest::newRow("3183") << 3183 << u"Não há espaço suficiente no disco."_s;
    QTest::newRow("3265") << 3265 << u"Item não encontrado nesta coleção."_s;
    QTest::newRow("3315") << 3315 << u"O campo '<nome>' não aceita texto vazio."_s;
    QTest::newRow("3343") << 3343 << u"O arquivo '<nome>' não é um banco de dados reconhecido."_s;
    QTest::newRow("3371") << 3371 << u"A tabela '<nome>' não existe."_s;
    QTest::newRow("3376") << 3376 << u"A tabela '<nome>' não existe."_s;
    QTest::newRow("3380") << 3380 << u"O campo '<nome>' já existe na tabela '<outro>'."_s;
    QTest::newRow("3421") << 3421 << u"Erro de conversão do tipo de dados."_s;
}

void tst_error::everyNumberHasItsText()
{
    QFETCH(int, number);
    QTEST(errorText(number, {u"<nome>"_s, u"<outro>"_s}), "text");
}

void tst_error::aGenuineJetFileIsToldWithWhatToDo()
{
    QCOMPARE(errorText(3343, {u"/oficina/DADOS.MDB"_s, u"DADOS.MDB"_s}, Wording::GenuineJet),
             u"O arquivo '/oficina/DADOS.MDB' não é um banco de dados reconhecido. É um banco de dados Jet (.MDB) "
             "genuíno e precisa ser convertido antes de ser usado.\n\nMude o nome dele para ANTIGO.MDB e "
             "execute na pasta dele:\n\ntarvelo-importa ANTIGO.MDB \"DADOS.MDB\"\n\nO manual "
             "ensina os passos, em \"Trazer os dados do sistema antigo\"."_s);
}

void tst_error::argumentsFillThePlaces()
{
    QCOMPARE(errorText(3380, {u"Nome"_s, u"Clientes"_s}), u"O campo 'Nome' já existe na tabela 'Clientes'."_s);
    QCOMPARE(errorText(3061, {u"2"_s}), u"Parâmetros insuficientes. Eram esperados 2."_s);
}

void tst_error::argumentsAreNotReadForPlaces()
{
    QCOMPARE(errorText(3075, {u"%2"_s, u"Nome LIKE '%1'"_s}), u"%2 na expressão 'Nome LIKE '%1''."_s);
}

void tst_error::placesWithoutArgumentStayEmpty()
{
    QCOMPARE(errorText(3010), u"A tabela '' já existe."_s);
}

void tst_error::unknownNumberHasNoText()
{
    QCOMPARE(errorText(1), QString());
    QCOMPARE(RuntimeError(1).description(), QString());
}

void tst_error::errorTellsNumberAndText()
{
    try {
        raise(3024, {u"CEP.MDB"_s});
    } catch (const RuntimeError &error) {
        QCOMPARE(error.number(), 3024);
        QCOMPARE(error.description(), u"Não foi possível encontrar o arquivo 'CEP.MDB'."_s);
        QCOMPARE(QByteArray(error.what()), error.description().toUtf8());
    }
    QCOMPARE(RuntimeError(53, u"Outro texto"_s).description(), u"Outro texto"_s);
}

QTEST_APPLESS_MAIN(tst_error)

#include "tst_error.moc"
