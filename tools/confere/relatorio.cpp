#include "tools/confere/relatorio.h"

#include "core/funcoes.h"
#include "platform/runtime/runtime.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace confere
{

namespace
{

QString numero(qint64 quantos)
{
    return runtime::Format(static_cast<double>(quantos), u"#,##0");
}

QString quantos(qint64 n, const QString &um, const QString &varios)
{
    return numero(n) + u' ' + (n == 1 ? um : varios);
}

QString nomeDoNivel(Nivel nivel, qint64 n)
{
    return nivel == Nivel::Erro ? quantos(n, u"erro"_s, u"erros"_s) : quantos(n, u"aviso"_s, u"avisos"_s);
}

QString tamanhoDe(qint64 bytes)
{
    constexpr double mil = 1024;
    const double kb = static_cast<double>(bytes) / mil;
    return kb < mil ? runtime::Format(kb, u"#,##0") + u" KB"_s : runtime::Format(kb / mil, u"#,##0.0") + u" MB"_s;
}

/// False where something stopped the check in the middle, which is then its last finding.
bool percorre(const Conferencia &conferencia, Banco &banco, Achados &achados)
{
    try {
        conferencia.confere(banco, achados);
        return true;
    } catch (const runtime::RuntimeError &erro) {
        const bool dano = erro.number() == 3343;
        achados.acha(u"A conferência parou no meio: "_s +
                     (dano ? u"esta parte do arquivo está danificada."_s : erro.description()));
        return false;
    }
}

Resultado faz(const Conferencia &conferencia, Banco &banco)
{
    Resultado resultado{.nome = conferencia.nome, .nivel = conferencia.nivel};
    resultado.feita = std::all_of(conferencia.precisa.begin(), conferencia.precisa.end(),
                                  [&banco](const auto &precisa) { return banco.tem(precisa.tabela, precisa.colunas); });
    if (!resultado.feita) {
        return resultado;
    }
    Achados achados([&resultado](const QString &frase) {
        if (resultado.frases.size() < frasesGuardadas) {
            resultado.frases.append(frase);
        }
    });
    if (!percorre(conferencia, banco, achados)) {
        resultado.nivel = Nivel::Erro;
    }
    resultado.oQueConta = conferencia.oQueConta;
    resultado.contadas = achados.contadas();
    resultado.achados = achados.achadas();
    return resultado;
}

QString marca(const Resultado &resultado)
{
    if (!resultado.feita) {
        return u"-     "_s;
    }
    if (resultado.achados == 0) {
        return u"certo "_s;
    }
    return resultado.nivel == Nivel::Erro ? u"ERRO  "_s : u"aviso "_s;
}

QString linhaDe(const Resultado &resultado)
{
    QString linha = marca(resultado) + resultado.nome + u": "_s;
    if (!resultado.feita) {
        return linha + u"o arquivo ainda não tem estas tabelas\n"_s;
    }
    const QString um = resultado.oQueConta.toString();
    linha += quantos(resultado.contadas, um, um + u's');
    if (resultado.achados > 0) {
        linha += u", "_s + nomeDoNivel(resultado.nivel, resultado.achados);
    }
    return linha + u'\n';
}

QString linhaDaFrase(const QString &frase)
{
    return u"        "_s + frase + u'\n';
}

QString frasesDe(const Resultado &resultado, bool todas, QStringView asOutras)
{
    const qsizetype mostradas =
        todas ? resultado.frases.size() : std::min<qsizetype>(resultado.frases.size(), maisFrases);
    QString texto;
    for (qsizetype i = 0; i < mostradas; ++i) {
        texto += linhaDaFrase(resultado.frases[i]);
    }
    if (const qint64 faltam = resultado.achados - mostradas; faltam > 0) {
        texto += u"        ... e mais %1 (%2)\n"_s.arg(numero(faltam), asOutras);
    }
    return texto;
}

/// The file is held still, so that what was counted is what is told now.
void escreveTodas(const Conferencia &conferencia, Banco &banco, const Escreve &escreve)
{
    Achados achados([&escreve](const QString &frase) { escreve(linhaDaFrase(frase)); });
    percorre(conferencia, banco, achados);
}

QString cabecalho(const Relatorio &relatorio)
{
    return u"Conferência de %1 (%2, gravado em %3)\n\n"_s.arg(
        QDir::toNativeSeparators(relatorio.arquivo), tamanhoDe(relatorio.tamanho),
        runtime::Format(relatorio.gravado, core::mascaraDataHora));
}

QString soma(const Relatorio &relatorio)
{
    if (relatorio.nadaAchado()) {
        return u"Resultado: nada foi encontrado.\n"_s;
    }
    return u"Resultado: %1 e %2.\n"_s.arg(nomeDoNivel(Nivel::Erro, relatorio.achados(Nivel::Erro)),
                                          nomeDoNivel(Nivel::Aviso, relatorio.achados(Nivel::Aviso)));
}

/// A file of ours that is another one, the postal codes, would pass every check for want of tables.
void recusaOutroBanco(const Banco &banco, const QString &arquivo)
{
    if (!banco.tem(u"Senha") && !banco.tem(u"Clientes")) {
        throw runtime::RuntimeError(3343, u"O arquivo '%1' não tem as tabelas da oficina: não é o banco de dados "
                                          "principal."_s.arg(QDir::toNativeSeparators(arquivo)));
    }
}

} // namespace

std::vector<Conferencia> Conferencias()
{
    std::vector<Conferencia> todas;
    for (const auto &conferencias :
         {ConferenciasDoArquivo(), ConferenciasDosSaldos(), ConferenciasDosDocumentos(), ConferenciasDasReferencias(),
          ConferenciasDosPagamentos(), ConferenciasDosCodigos()}) {
        todas.insert(todas.end(), conferencias.begin(), conferencias.end());
    }
    return todas;
}

QString TextoDoCodigo(qint64 codigo)
{
    return runtime::Format(static_cast<double>(codigo), core::mascaraCodigo);
}

QString NomeDaLinha(QStringView tabela, std::optional<qint64> codigo)
{
    return codigo ? u"%1, código %2"_s.arg(tabela, TextoDoCodigo(*codigo)) : u"%1, linha sem código"_s.arg(tabela);
}

qint64 Relatorio::achados(Nivel nivel) const
{
    qint64 soma = 0;
    for (const Resultado &resultado : resultados) {
        soma += resultado.nivel == nivel ? resultado.achados : 0;
    }
    return soma;
}

Relatorio Confere(const QString &arquivo)
{
    return ConfereEEscreve(arquivo, false, [](const QString & /*texto*/) {});
}

Relatorio ConfereEEscreve(const QString &arquivo, bool todas, const Escreve &escreve)
{
    Banco banco(arquivo);
    recusaOutroBanco(banco, arquivo);
    const QFileInfo info(arquivo);
    Relatorio relatorio{.arquivo = arquivo,
                        .tamanho = info.size(),
                        .gravado = runtime::fromDateTime(info.lastModified()),
                        .resultados = {}};
    escreve(cabecalho(relatorio));
    for (const Conferencia &conferencia : Conferencias()) {
        const Resultado &resultado = relatorio.resultados.emplace_back(faz(conferencia, banco));
        escreve(linhaDe(resultado));
        if (todas && resultado.achados > resultado.frases.size()) {
            escreveTodas(conferencia, banco, escreve);
        } else {
            escreve(frasesDe(resultado, todas, tudoMostra));
        }
    }
    escreve(u'\n' + soma(relatorio));
    return relatorio;
}

QString Texto(const Relatorio &relatorio, bool todas, QStringView asOutras)
{
    QString texto = cabecalho(relatorio);
    for (const Resultado &resultado : relatorio.resultados) {
        texto += linhaDe(resultado) + frasesDe(resultado, todas, asOutras);
    }
    return texto + u'\n' + soma(relatorio);
}

} // namespace confere
