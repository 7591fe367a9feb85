#include "tests/estimates/impresso.h"

#include "support/sheets.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace estimates;
using documents::LinhaItem;
using support::Sheets;

namespace impresso
{

const QString columns =
    u"CÓDIGO - T -     QUANT. - DESCRIÇÃO                                    -   V. UNIT. -   V. TOTAL"_s;
const QString heading = u"FORMAS DE PAGAMENTO"_s;
const QString text1 = u"ORÇAMENTO VÁLIDO POR 15 DIAS"_s;
const QString text2 = u"VALORES SUJEITOS A ALTERÇÃO SEM PRÉVIO AVISO"_s;

namespace
{

const QString endOfSheet = u"======== fim da folha"_s;

LinhaItem item(int number)
{
    return {u"%1"_s.arg(number, 4, 10, QChar(u'0')), u"P"_s, u"02"_s, u"PEÇA %1"_s.arg(number), u"10,00"_s, u"20,00"_s};
}

QString money(qint64 cents)
{
    QString reais = QString::number(cents / 100);
    for (qsizetype place = reais.size() - 3; place > 0; place -= 3) {
        reais.insert(place, u'.');
    }
    return reais + u",%1"_s.arg(cents % 100, 2, 10, QChar(u'0'));
}

/// The quotient rounded to whole cents, a half upwards.
QString quotient(qint64 dividend, qint64 divisor)
{
    return money((2 * dividend + divisor) / (2 * divisor));
}

} // namespace

std::vector<LinhaItem> items(int count)
{
    std::vector<LinhaItem> rows;
    for (int number = 1; number <= count; ++number) {
        rows.push_back(item(number));
    }
    return rows;
}

Orcamento estimate(const QString &value)
{
    return {.codigo = u"0042"_s,
            .data = u"15/05/2024"_s,
            .marca = u"VOLKSWAGEN GOL 1.0"_s,
            .ano = u"1998/1999"_s,
            .codCliente = u"0007"_s,
            .nome = u"MARIA DA SILVA"_s,
            .fone = u"(19) 3251-7788"_s,
            .valor = value,
            .itens = {{u"0003"_s, u"P"_s, u"02"_s, u"FILTRO DE ÓLEO"_s, u"17,28"_s, u"34,56"_s},
                      {u"0000"_s, u"A"_s, u"1,500"_s, u"MÃO DE OBRA"_s, u"800,00"_s, u"1.200,00"_s}}};
}

QStringList conditions(qint64 cents, const Settings &set)
{
    const auto [discount, days30, interest30, interest, shown] = set.yes;
    if (!shown) {
        return {};
    }
    QStringList lines{heading};
    lines << u"À VISTA...........: R$ "_s + (discount ? quotient(cents * 90, 100) : money(cents));
    if (days30) {
        lines << u"30 DIAS...........: R$ "_s +
                     (interest30 ? quotient(cents * (100 + set.percent), 100) : money(cents));
    }
    for (int more = 1; more < set.instalments; ++more) {
        const qint64 hundredths = cents * (100 + (interest ? set.percent * more : 0));
        lines << u"01 + %1...........: R$ "_s.arg(more, 2, 10, QChar(u'0')) + quotient(hundredths, 100 * (more + 1));
    }
    return lines << text1 << text2;
}

QStringList wholeSheet(int layout, const QStringList &behindTheTotal)
{
    const QStringList body{
        u"DATA................: 15/05/2024"_s,
        u"CÓDIGO DO CLIENTE...: 0007"_s,
        u"NOME DO CLIENTE.....: MARIA DA SILVA"_s,
        u"TELEFONE............: (19) 3251-7788"_s,
        u"VEÍCULO MARCA/MODELO: VOLKSWAGEN GOL 1.0"_s,
        u"ANO.................: 1998/1999"_s,
        QString(),
        columns,
        u"0003     P           02   FILTRO DE ÓLEO                                      17,28        34,56"_s,
        u"0000     A        1,500   MÃO DE OBRA                                        800,00     1.200,00"_s,
        QString(63, u' ') + u"VALOR TOTAL.....:        1.234,56"_s};
    if (layout == 1) {
        return QStringList{QString(), QString(32, u' ') + u"ORÇAMENTO Nº 0042"_s, QString()} + body + behindTheTotal +
               QStringList{QString(),
                           QString(),
                           QString(),
                           QString(45, u' ') + u"Tarvelo"_s,
                           QString(39, u' ') + u"RUA DAS FLORES, 123"_s,
                           QString(37, u' ') + u"CENTRO - CAMPINAS - SP"_s,
                           QString(41, u' ') + u"(19) 3232-1010"_s,
                           QString(40, u' ') + u"DATA: 15/05/2024"_s,
                           endOfSheet};
    }
    return QStringList{QString(40, u' ') + u"ORÇAMENTO Nº 0042"_s} + body + behindTheTotal +
           QStringList{QString(96, u'_'),
                       QString(30, u' ') + u"RUA DAS FLORES, 123 - CENTRO - CAMPINAS - SP - (19) 3232-1010"_s,
                       endOfSheet};
}

QStringList printed(int layout, const Orcamento &estimate)
{
    Sheets sheets;
    ImprimeOrcamento(layout, estimate, sheets);
    return sheets.lines();
}

void compare(const QStringList &found, const QStringList &expected, const QString &what)
{
    if (found != expected) {
        qWarning("%s\n%s\n-- expected\n%s", qPrintable(what), qPrintable(found.join(u'\n')),
                 qPrintable(expected.join(u'\n')));
    }
    QCOMPARE(found, expected);
}

QStringList paymentOf(const QStringList &lines)
{
    const qsizetype from = lines.indexOf(heading);
    const qsizetype to = lines.indexOf(text2);
    return from < 0 ? QStringList() : lines.mid(from, to - from + 1);
}

void Case::prepare()
{
    program_ = std::make_unique<support::Program>();
    written_.clear();
    set(u"Config"_s, u"Endereco"_s, u"RUA DAS FLORES, 123"_s);
    set(u"Config"_s, u"Bairro"_s, u"CENTRO - CAMPINAS - SP"_s);
    set(u"Config"_s, u"Telefone"_s, u"(19) 3232-1010"_s);
    set(u"Config"_s, u"Desconto"_s, u"0,10"_s);
}

void Case::set(const QString &section, const QString &key, const QString &value)
{
    if (written_.value(key) != value) {
        program_->config(key, value, section);
        written_.insert(key, value);
    }
}

void Case::apply(const Settings &settings)
{
    const QString section = u"Orcamento"_s;
    for (std::size_t option = 0; option < settings.yes.size(); ++option) {
        set(section, u"P%1"_s.arg(option + 1), settings.yes.at(option) ? u"0"_s : u"1"_s);
    }
    set(section, u"Parcelas"_s, u"%1"_s.arg(settings.instalments, 2, 10, QChar(u'0')));
    set(u"Config"_s, u"Juros"_s, settings.percent == 0 ? u"0"_s : u"0,%1"_s.arg(settings.percent, 2, 10, QChar(u'0')));
}

void Case::layouts()
{
    QTest::addColumn<int>("layout");
    for (const int layout : {1, 2, 3}) {
        QTest::addRow("layout %d", layout) << layout;
    }
}

} // namespace impresso
