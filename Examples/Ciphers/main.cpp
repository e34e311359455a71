// SPDX-License-Identifier: MIT
// Keeps a secret as text, and takes digests:
//     example-ciphers "the secret" "the key"
#include <ToolKit/Data/Ciphers/AES.h>
#include <ToolKit/Data/Ciphers/Digest.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

using namespace quor::toolkit;

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Keeps a secret as text, and takes digests."));
    parser.addHelpOption();
    parser.addPositionalArgument(
        QStringLiteral("secret"), QStringLiteral("What to keep."), QStringLiteral("[secret"));
    parser.addPositionalArgument(
        QStringLiteral("key"), QStringLiteral("What it opens with."), QStringLiteral("[key]]"));
    parser.process(application);
    const QStringList arguments = parser.positionalArguments();
    const QString secret = arguments.value(0, QStringLiteral("Grüße, 4711"));
    const QString key = arguments.value(1, QStringLiteral("correct horse battery staple"));
    QTextStream out(stdout);

    // Text in, text out: each call gives another text, and all of them open with the key. There is a
    // result, or there is none.
    const auto sealed = encrypted(secret, key);
    if (!sealed) {
        QTextStream(stderr) << "this secret cannot be kept\n";
        return 1;
    }
    out << "sealed:         " << *sealed << '\n';
    out << "opened:         " << decrypted(*sealed, key).value_or(QStringLiteral("(nothing)")) << '\n';
    out << "by another key: " << decrypted(*sealed, key + u'!').value_or(QStringLiteral("(nothing)")) << '\n';

    // Bytes in, bytes out; a failure throws, and says why.
    const QByteArray data = encrypt(secret.toUtf8(), key);
    try {
        (void)decrypt(data.chopped(1), key);
    } catch (const AESError& error) {
        out << "cut short:      " << error.message() << ", status " << error.status() << '\n';
    }

    // Digests, of texts in hexadecimal and of bytes as they are.
    out << "SHA-256:        " << sha256(secret).value_or(QString()) << '\n';
    out << "SHA-512:        " << hexadecimal(digest(secret.toUtf8(), false)).first(32) << "…\n";
    return 0;
}
