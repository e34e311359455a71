// SPDX-License-Identifier: MIT
#include "ToolKit/Data/AES.h"
#include "ToolKit/Data/Base64.h"
#include "ToolKit/Data/CBCCipher.h"
#include "ToolKit/Data/Digest.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QStringList>

#include <gtest/gtest.h>

#include <openssl/err.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;

namespace {

QByteArray randomBytes(qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    QRandomGenerator::global()->generate(bytes.begin(), bytes.end());
    return bytes;
}

/// What the openssl command makes of `input`.
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

/// The status of the error, which must tell of a decryption; 0 if there was none.
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

// SP 800-38A, F.2.5 and F.2.6; the published ciphertext ends before the block of padding.
TEST(Ciphers, AgreeWithThePublishedVector)
{
    const auto key = QByteArray::fromHex("603deb1015ca71be2b73aef0857d77811f352c073b6108d72d9810a30914dff4");
    const auto iv = QByteArray::fromHex("000102030405060708090a0b0c0d0e0f");
    const auto plain
        = QByteArray::fromHex("6bc1bee22e409f96e93d7e117393172aae2d8a571e03ac9c9eb76fac45af8e51"
                              "30c81c46a35ce411e5fbc1191a0a52eff69f2445df4f9b17ad2b417be66c3710");
    const auto sealed
        = QByteArray::fromHex("f58c4c04d6e5f1ba779eabfb5f7bfbd69cfc4e967edb808d679f777bc6702c7d"
                              "39f23369a9d9bacfa530e26304231461b2eb05e2c39be9fcda6c19078c6a9d1b");
    SecretBytes secret(CBCCipher::keySize);
    std::copy(key.begin(), key.end(), secret.data());
    QByteArray out(80, '\0');
    ASSERT_EQ(CBCCipher::crypt(CBCCipher::Direction::encrypt, secret, iv, plain, out.data()), 80);
    EXPECT_EQ(out.first(64), sealed);
    QByteArray back(80, '\0');
    ASSERT_EQ(
        CBCCipher::crypt(CBCCipher::Direction::decrypt, secret, iv, sealed + out.sliced(64), back.data()),
        64);
    EXPECT_EQ(back.first(64), plain);
}

TEST(Ciphers, AgreeWithTheOpensslCommandUnderKeysOfAnyLength)
{
    const QString keys[] = {{}, u"abc"_s, u"abc\0"_s, u"a\0b"_s, QString(31, u'k'), QString(32, u'k'),
        QString(33, u'k'), QString(31, u'k') + u'ü', u"größer 👍"_s};
    for (const QString& key : keys) {
        for (const qsizetype size : {0, 1, 15, 16, 17, 5000}) {
            const QByteArray plain = randomBytes(size);
            const QByteArray sealed = encrypt(plain, key);
            ASSERT_EQ(sealed.size(), 16 + (size / 16 + 1) * 16);
            const QStringList cipher{u"-aes-256-cbc"_s, u"-K"_s,
                hexadecimal(key.toUtf8().leftJustified(32, '\0', true)), u"-iv"_s,
                hexadecimal(sealed.first(16))};
            EXPECT_EQ(openssl(QStringList{u"enc"_s, u"-d"_s} + cipher, sealed.sliced(16)), plain)
                << qPrintable(key);
            EXPECT_EQ(openssl(QStringList{u"enc"_s, u"-e"_s} + cipher, plain), sealed.sliced(16));
            EXPECT_EQ(decrypt(sealed, key), plain);
        }
    }
    EXPECT_EQ(decrypt(encrypt("x", u"abc"), u"abc\0"_s), "x") << "a key is filled up with zero bytes";
    EXPECT_EQ(decrypt(encrypt("x", QString(40, u'k')), QString(32, u'k')), "x") << "and cut";
    EXPECT_NE(encrypt("x", u"abc").first(16), encrypt("x", u"abc").first(16));
}

TEST(Ciphers, TellWhyThereIsNoResult)
{
    const QByteArray sealed = encrypt(randomBytes(40), u"key");
    for (qsizetype size = 0; size < sealed.size(); ++size) {
        if (size % 16 == 0 && size >= 32)
            continue; // whole blocks fail unless their end happens to be a padding
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
    for (const auto& text : {u""_s, u"AAAA"_s, u"not base64!"_s, u"===="_s})
        EXPECT_EQ(decrypted(text, key), std::nullopt) << qPrintable(text);
    const QString half = u"a"_s + QChar(0xD83D);
    EXPECT_EQ(encrypted(half, key), std::nullopt);
    EXPECT_EQ(encrypted(u"a", half), std::nullopt);
    EXPECT_EQ(decrypted(encrypted(u"a", key).value(), half), std::nullopt);
}

/// Whether the Latin-1 of `secret`, which is kept in UTF-16 alone, stands anywhere in writable memory.
/// Looks without allocating, which would write over what was freed.
bool isInMemory(const QString& secret)
{
    static char maps[1 << 18];
    static char bytes[1 << 20];
    const int list = ::open("/proc/self/maps", O_RDONLY);
    const int memory = ::open("/proc/self/mem", O_RDONLY);
    ssize_t length = 0;
    while (const ssize_t count = ::read(list, maps + length, sizeof maps - 1 - static_cast<size_t>(length)))
        length += count;
    maps[length] = '\0';
    const auto part = secret.sliced(secret.size() - 1000, 16);
    bool found = false;
    for (const char* line = maps; *line != '\0'; line = std::strchr(line, '\n') + 1) {
        char* rest = nullptr;
        const auto from = std::strtoll(line, &rest, 16);
        const auto to = std::strtoll(rest + 1, &rest, 16);
        if (std::strncmp(rest, " rw", 3) != 0 || to - from > (1LL << 28))
            continue; // beyond that it is a sanitizer's own
        for (auto at = from; at < to; at += 1 << 19) { // they overlap
            const auto count = ::pread(memory, bytes, static_cast<size_t>(std::min(to - at, 1LL << 20)), at);
            const auto isSame = [](char byte, QChar character) { return byte == character.toLatin1(); };
            found = found
                || (count > 0
                    && std::search(bytes, bytes + count, part.begin(), part.end(), isSame) != bytes + count);
        }
    }
    ::close(list);
    ::close(memory);
    return found;
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
    struct Case {
        QStringView text;
        std::optional<QByteArray> strict;
        std::optional<QByteArray> tolerant;
    };
    for (const Case& c :
        std::initializer_list<Case>{{u"", "", ""}, {u"+/8=", "\xfb\xff", "\xfb\xff"}, {u"YWI=\n", none, "ab"},
            {u" Y W\tI=", none, "ab"}, {u"YÄW👍I=", none, "ab"}, {u"?", none, ""}, {u"-_8=", none, none},
            {u"YWI", none, none}, {u"YQ", none, none}, {u"YQ===", none, none}, {u"YQ==YQ==", none, none},
            {u"Y===", none, none}, {u"YW=I", none, none}, {u"====", none, none}}) {
        EXPECT_EQ(dataFromBase64(c.text, Base64Decoding::strict), c.strict) << c.text.toUtf8().constData();
        EXPECT_EQ(dataFromBase64(c.text, Base64Decoding::ignoreUnknownCharacters), c.tolerant)
            << c.text.toUtf8().constData();
    }
    EXPECT_EQ(base64EncodedString("\xfb\xff"), u"+/8=");
}

// The examples of FIPS 180-4, and no bytes.
TEST(Digests, AgreeWithThePublishedExamplesAndTheOpensslCommand)
{
    EXPECT_EQ(sha256(u"").value(), u"e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(sha256(u"abc").value(), u"ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(sha256(u"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq").value(),
        u"248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(sha512(u"abc").value(),
        u"ddaf35a193617abacc417349ae20413112e6fa4e89a97ea20a9eeee64b55d39a"
        "2192992a274fc1a836ba3c23a3feebbd454d4423643ce80e2a9ac94fa54ca49f");
    EXPECT_EQ(sha512(u"abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmnhijklmno"
                     "ijklmnopjklmnopqklmnopqrlmnopqrsmnopqrstnopqrstu")
                  .value(),
        u"8e959b75dae313da8cf4f72814fc143f8f7779c6eb9f7fa17299aeadb6889018"
        "501d289e4900f7e4331b99dec4b5433ac7d329eeb6dd26545e96e55b874be909");
    for (const qsizetype size : {0, 111, 100'000}) {
        const QByteArray data = randomBytes(size);
        EXPECT_EQ(digest(data, true), openssl({u"dgst"_s, u"-sha256"_s, u"-binary"_s}, data));
        EXPECT_EQ(digest(data, false), openssl({u"dgst"_s, u"-sha512"_s, u"-binary"_s}, data));
    }
    EXPECT_EQ(sha256(QString(QChar(0xDC00))), std::nullopt);
    EXPECT_EQ(hexadecimal(QByteArray("\0\x0f\xff", 3)), u"000fff");
    EXPECT_EQ(hexadecimal({}), u"");
}

} // namespace
