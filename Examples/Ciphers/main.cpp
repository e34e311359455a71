// SPDX-License-Identifier: MIT
// Encrypts a secret as text, and computes digests:
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
    parser.setApplicationDescription(QStringLiteral("Encrypts a secret as text, and computes digests."));
    parser.addHelpOption();
    parser.addPositionalArgument(
        QStringLiteral("secret"), QStringLiteral("The secret."), QStringLiteral("[secret"));
    parser.addPositionalArgument(QStringLiteral("key"), QStringLiteral("The key."), QStringLiteral("[key]]"));
    parser.process(application);
    const QStringList arguments = parser.positionalArguments();
    const QString secret = arguments.value(0, QStringLiteral("Grüße, 4711"));
    const QString key = arguments.value(1, QStringLiteral("correct horse battery staple"));
    QTextStream out(stdout);

    // From text to text. Each call returns another text, and the key decrypts all of them. A failure returns
    // `nullopt`.
    const auto ciphertext = encrypted(secret, key);
    if (!ciphertext) {
        QTextStream(stderr) << "this secret cannot be encrypted: it is not valid Unicode\n";
        return 1;
    }
    out << "encrypted:      " << *ciphertext << '\n';
    out << "decrypted:      " << decrypted(*ciphertext, key).value_or(QStringLiteral("(nothing)")) << '\n';
    out << "by another key: " << decrypted(*ciphertext, key + u'!').value_or(QStringLiteral("(nothing)"))
        << '\n';

    // From bytes to bytes. A failure throws an exception with the reason.
    const QByteArray data = encrypt(secret.toUtf8(), key);
    try {
        (void)decrypt(data.chopped(1), key);
    } catch (const AESError& error) {
        out << "cut short:      " << error.message() << ", status " << error.status() << '\n';
    }

    // Digests: of a text in hexadecimal digits, or of bytes as bytes.
    out << "SHA-256:        " << sha256(secret).value_or(QString()) << '\n';
    out << "SHA-512:        " << hexadecimal(digest(secret.toUtf8(), false)).first(32) << "…\n";
    return 0;
}
