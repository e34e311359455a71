// SPDX-License-Identifier: MIT
#include "ToolKit/Data/Ciphers/AES.h"
#include "ToolKit/Data/Ciphers/Base64.h"
#include "ToolKit/Data/Ciphers/Digest.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QStringList>

#include <gtest/gtest.h>

#include <openssl/err.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <string>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;

namespace {

QByteArray randomBytes(qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    QRandomGenerator::global()->generate(bytes.begin(), bytes.end());
    return bytes;
}

/// Returns the output of the openssl command for `input`.
QByteArray openssl(const QStringList& arguments, const QByteArray& input)
{
    QProcess process;
    process.start(u"openssl"_s, arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished()) << qPrintable(process.errorString());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
    return process.readAllStandardOutput();
}

/// Returns the status of the error, which must be one of decryption; 0 if there was no error.
int statusOfDecrypting(const QByteArray& data, const QString& key)
{
    try {
        (void)decrypt(data, key);
    } catch (const AESError& error) {
        EXPECT_EQ(error.kind(), AESError::Case::CryptorError);
        EXPECT_STREQ(error.what(), "Decryption failed");
        return error.status();
    }
    return 0;
}

TEST(Ciphers, AgreeWithTheOpensslCommandUnderKeysOfAnyLength)
{
    for (const QString& key : {QString(), u"a\0b"_s, QString(31, u'k'), QString(32, u'k'), QString(33, u'k'),
             QString(31, u'k') + u'ü'}) {
        for (const qsizetype size : {0, 1, 15, 16, 17, 5000}) {
            const QByteArray plain = randomBytes(size);
            const QByteArray sealed = encrypt(plain, key);
            ASSERT_EQ(sealed.size(), 16 + (size / 16 + 1) * 16);
            const QString bits = hexadecimal(key.toUtf8().leftJustified(32, '\0', true));
            EXPECT_EQ(
                openssl({u"enc"_s, u"-aes-256-cbc"_s, u"-K"_s, bits, u"-iv"_s, hexadecimal(sealed.first(16))},
                    plain),
                sealed.sliced(16));
            EXPECT_EQ(decrypt(sealed, key), plain);
        }
    }
    EXPECT_NE(encrypt("x", u"abc").first(16), encrypt("x", u"abc").first(16));
}

TEST(Ciphers, TellWhyThereIsNoResult)
{
    const QByteArray sealed = encrypt(randomBytes(40), u"key");
    for (qsizetype size = 0; size < sealed.size(); ++size) {
        if (size % 16 == 0 && size >= 32)
            continue; // whole blocks fail, unless their end is a valid padding by chance
        EXPECT_NE(statusOfDecrypting(sealed.first(size), u"key"_s), 0) << size;
    }
    EXPECT_EQ(ERR_peek_error(), 0) << "nobody else's error";

    const QString half(QChar(0xD83D));
    for (const bool encrypting : {false, true}) {
        try {
            (void)(encrypting ? encrypt("x", half) : decrypt(sealed, half));
            ADD_FAILURE() << "no error";
        } catch (const AESError& error) {
            EXPECT_EQ(error.kind(), AESError::Case::KeyError);
            EXPECT_EQ(error.message(), u"Invalid key");
            EXPECT_EQ(error.status(), 0);
        }
    }
}

TEST(Ciphers, KeepTexts)
{
    const QString key = u"a key"_s;
    for (const QString& text :
        {QString(), u"größer 👍"_s, u"a\0b"_s, u"\uFEFFmarked"_s, QString(1000, u'–')}) {
        const QString sealed = encrypted(text, key).value();
        EXPECT_FALSE(sealed.contains(u'\n'));
        EXPECT_EQ(decrypted(sealed, key), text);
        QString wrapped;
        for (const QChar character : sealed)
            wrapped += character + u"\r\n \u00a0Ä-"_s;
        EXPECT_EQ(decrypted(wrapped, key), text);
        EXPECT_EQ(decrypted(sealed.chopped(1), key), std::nullopt) << "cut within the base64";
        EXPECT_NE(decrypted(sealed, u"another key"), text);
    }
    for (const char* plain : {"\xff", "\xc3", "\xed\xa0\xbd", "\xc0\x80"})
        EXPECT_EQ(decrypted(base64EncodedString(encrypt(plain, key)), key), std::nullopt) << "no UTF-8";
    EXPECT_EQ(decrypted(u"AAAA"_s, key), std::nullopt) << "too short";
    const QString half = u"a"_s + QChar(0xD83D);
    EXPECT_EQ(encrypted(half, key), std::nullopt);
    EXPECT_EQ(encrypted(u"a", half), std::nullopt);
    EXPECT_EQ(decrypted(encrypted(u"a", key).value(), half), std::nullopt);
}

/// Returns whether writable memory contains the Latin-1 bytes of `secret`, which the test has in UTF-16 only.
bool isInMemory(const QString& secret)
{
    static char bytes[1 << 20];
    const auto part = secret.sliced(secret.size() - 1000, 16); // where no small allocation overwrites it
    const auto isSame = [](char byte, QChar character) { return byte == character.toLatin1(); };
    std::ifstream maps("/proc/self/maps");
    std::ifstream memory("/proc/self/mem", std::ios::binary);
    for (std::string line; std::getline(maps, line);) {
        unsigned long from = 0, to = 0;
        char access[3]{};
        std::sscanf(line.c_str(), "%lx-%lx %2s", &from, &to, access);
        if (access != std::string("rw") || to - from > (1UL << 28))
            continue; // larger areas belong to a sanitizer
        for (auto at = from; at < to; at += 1 << 19) { // they overlap
            memory.clear();
            memory.seekg(static_cast<std::streamoff>(at));
            memory.read(bytes, static_cast<std::streamsize>(std::min(to - at, 1UL << 20)));
            const char* end = bytes + memory.gcount();
            if (std::search(static_cast<const char*>(bytes), end, part.begin(), part.end(), isSame) != end)
                return true;
        }
    }
    return false;
}

TEST(Ciphers, LeaveNeitherKeyNorPlainTextBehind)
{
    const auto secretText = [] {
        QString text(20'000, Qt::Uninitialized);
        for (QChar& character : text)
            character = QChar(QRandomGenerator::global()->bounded(u'a', u'z'));
        return text;
    };
    const QString key = secretText();
    const QString text = secretText();
    const QString careless = secretText();
    (void)careless.toUtf8();
    EXPECT_TRUE(isInMemory(careless));
    EXPECT_EQ(decrypted(encrypted(text, key).value(), key), text);
    EXPECT_TRUE(sha512(text));
    const auto sealed = dataFromBase64(encrypted(text, key).value(), Base64Decoding::strict).value();
    EXPECT_NE(statusOfDecrypting(sealed.chopped(16), key), 0) << "without its padding";
    EXPECT_FALSE(isInMemory(key));
    EXPECT_FALSE(isInMemory(text));
}

TEST(Base64, IsReadStrictlyOrTolerantly)
{
    constexpr auto none = std::nullopt;
    using Bytes = std::optional<QByteArray>;
    for (const auto& [text, strict, tolerant] : std::initializer_list<std::tuple<QStringView, Bytes, Bytes>>{
             {u"", "", ""}, {u"+/8=", "\xfb\xff", "\xfb\xff"}, {u"YWI=\n", none, "ab"},
             {u" Y W\tI=", none, "ab"}, {u"YÄW👍I=", none, "ab"}, {u"?", none, ""}, {u"-_8=", none, none},
             {u"YWI", none, none}, {u"YQ", none, none}, {u"YQ===", none, none}, {u"YQ==YQ==", none, none},
             {u"Y===", none, none}, {u"YW=I", none, none}, {u"====", none, none}}) {
        SCOPED_TRACE(text.toUtf8().constData());
        EXPECT_EQ(dataFromBase64(text, Base64Decoding::strict), strict);
        EXPECT_EQ(dataFromBase64(text, Base64Decoding::ignoreUnknownCharacters), tolerant);
    }
    EXPECT_EQ(base64EncodedString("\xfb\xff"), u"+/8=");
}

TEST(Digests, AgreeWithThePublishedExamplesAndTheOpensslCommand)
{
    EXPECT_EQ(sha256(u"abc").value(), u"ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(sha256(u"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq").value(),
        u"248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(sha512(u"abc").value(),
        u"ddaf35a193617abacc417349ae20413112e6fa4e89a97ea20a9eeee64b55d39a"
        "2192992a274fc1a836ba3c23a3feebbd454d4423643ce80e2a9ac94fa54ca49f");
    for (const qsizetype size : {0, 111, 100'000}) {
        const QByteArray data = randomBytes(size);
        EXPECT_EQ(digest(data, true), openssl({u"dgst"_s, u"-sha256"_s, u"-binary"_s}, data));
        EXPECT_EQ(digest(data, false), openssl({u"dgst"_s, u"-sha512"_s, u"-binary"_s}, data));
    }
    EXPECT_EQ(sha256(QString(QChar(0xDC00))), std::nullopt);
    EXPECT_EQ(sha512(u"größer").value(), hexadecimal(digest(u"größer"_s.toUtf8(), false)));
}

} // namespace
