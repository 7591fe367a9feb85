#include "core/embaralha.h"

#include "platform/runtime/text.h"

#include <QByteArray>

#include <optional>

using namespace Qt::StringLiterals;

namespace core
{

namespace
{

constexpr int deslocamento = 3;
constexpr qsizetype larguraDaLinha = 64;
constexpr qsizetype grupo = 4;

PerguntaBase64 perguntaInstalada;
AvisoBase64 avisoInstalado;

/// The value of one base64 digit; padding counts as 0, a character outside the alphabet as none.
std::optional<quint32> valorDoDigito(QChar digito)
{
    static const QString alfabeto = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/"_s;
    if (digito == u'=') {
        return 0;
    }
    const qsizetype lugar = alfabeto.indexOf(digito);
    return lugar < 0 ? std::nullopt : std::optional<quint32>(static_cast<quint32>(lugar));
}

bool igualForaDoFim(QStringView texto)
{
    const qsizetype igual = texto.indexOf(u'=');
    return igual >= 0 && texto.mid(igual) != u"===="_s.left(texto.size() - igual);
}

/// Three 8-bit characters, or nothing for a group that is not base64.
QByteArray decodificaGrupo(QStringView texto)
{
    if (igualForaDoFim(texto)) {
        if (avisoInstalado) {
            avisoInstalado(u"Text Error: Equal Sign not at end of text"_s, u"TRIM END OF TEXT"_s);
        }
        return {};
    }
    quint32 bits = 0;
    for (const QChar digito : texto) {
        const std::optional<quint32> valor = valorDoDigito(digito);
        if (!valor) {
            return {};
        }
        bits = bits << 6 | *valor;
    }
    QByteArray bytes;
    for (const int posicao : {16, 8, 0}) {
        bytes.append(static_cast<char>(bits >> posicao & 0xFFU));
    }
    return bytes;
}

bool continuaApos(QStringView texto)
{
    return !perguntaInstalada ||
           perguntaInstalada(u"Illegal Characters <"_s + texto + u"> found"_s, u"PROGRAM ERROR"_s);
}

QString semEspacos(const QString &texto)
{
    QString limpo = texto;
    limpo.removeIf([](QChar c) { return c == u'\r' || c == u'\n' || c == u'\t' || c == u' '; });
    return limpo;
}

} // namespace

void setPerguntaBase64(PerguntaBase64 pergunta, AvisoBase64 aviso)
{
    perguntaInstalada = std::move(pergunta);
    avisoInstalado = std::move(aviso);
}

QString DeslocaTexto(const QString &texto, bool subir)
{
    QByteArray deslocado;
    for (const char c : runtime::toWestern(texto)) {
        const int codigo = static_cast<unsigned char>(c) + (subir ? deslocamento : -deslocamento);
        if (codigo >= 0 && codigo <= 0xFF) {
            deslocado.append(static_cast<char>(codigo));
        }
    }
    return runtime::fromWestern(deslocado);
}

QString Base64Codifica(const QString &texto)
{
    const QString codificado = QString::fromLatin1(runtime::toWestern(texto).toBase64());
    QString linhas;
    for (qsizetype inicio = 0; inicio < codificado.size(); inicio += larguraDaLinha) {
        const QString linha = codificado.mid(inicio, larguraDaLinha);
        linhas += linha;
        linhas += linha.size() == larguraDaLinha ? u"\r\n"_s : QString();
    }
    return linhas;
}

QString Base64Decodifica(const QString &texto)
{
    const QString limpo = semEspacos(texto);
    QByteArray bytes;
    for (qsizetype inicio = 0; inicio < limpo.size(); inicio += grupo) {
        const QString quatro = limpo.mid(inicio, grupo).leftJustified(grupo, u'=');
        const QByteArray tres = decodificaGrupo(quatro);
        if (tres.isEmpty() && !continuaApos(quatro)) {
            break;
        }
        bytes += tres.isEmpty() ? QByteArrayLiteral("???") : tres;
    }
    return runtime::fromWestern(bytes);
}

QString Embaralha(const QString &texto)
{
    return Base64Codifica(DeslocaTexto(texto, true));
}

QString Desembaralha(const QString &texto)
{
    return DeslocaTexto(Base64Decodifica(texto), false);
}

} // namespace core
