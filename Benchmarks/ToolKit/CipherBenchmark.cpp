// SPDX-License-Identifier: MIT
#include "ToolKit/Data/Ciphers/AES.h"
#include "ToolKit/Data/Ciphers/Digest.h"

#include <benchmark/benchmark.h>

#include <openssl/evp.h>
#include <openssl/rand.h>

#include <array>
#include <cstddef>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype size = qsizetype(64) << 20;

const QByteArray& plain()
{
    static const QByteArray bytes(size, 'p');
    return bytes;
}

const QByteArray& sealed()
{
    static const QByteArray bytes = encrypt(plain(), u"key");
    return bytes;
}

const QByteArray& key()
{
    static const QByteArray bytes = QByteArray("key").leftJustified(32, '\0');
    return bytes;
}

unsigned char* bytesOf(QByteArray& data)
{
    return reinterpret_cast<unsigned char*>(data.data());
}

const unsigned char* bytesOf(const QByteArray& data)
{
    return reinterpret_cast<const unsigned char*>(data.constData());
}

// The floors: OpenSSL called directly, with newly allocated memory for the results, as ours has.
void encryptByHand(benchmark::State& state)
{
    for ([[maybe_unused]] const auto _ : state) {
        QByteArray out(size + 32, Qt::Uninitialized);
        int count = 0;
        int last = 0;
        RAND_bytes(bytesOf(out), 16);
        EVP_CIPHER_CTX* const context = EVP_CIPHER_CTX_new();
        EVP_EncryptInit_ex2(context, EVP_aes_256_cbc(), bytesOf(key()), bytesOf(out), nullptr);
        EVP_EncryptUpdate(context, bytesOf(out) + 16, &count, bytesOf(plain()), static_cast<int>(size));
        EVP_EncryptFinal_ex(context, bytesOf(out) + 16 + count, &last);
        EVP_CIPHER_CTX_free(context);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(encryptByHand)->Unit(benchmark::kMillisecond);

void encryptOurs(benchmark::State& state)
{
    for ([[maybe_unused]] const auto _ : state)
        benchmark::DoNotOptimize(encrypt(plain(), u"key"));
}
BENCHMARK(encryptOurs)->Unit(benchmark::kMillisecond);

void decryptByHand(benchmark::State& state)
{
    const QByteArray& data = sealed();
    for ([[maybe_unused]] const auto _ : state) {
        QByteArray out(size + 16, Qt::Uninitialized);
        int count = 0;
        int last = 0;
        EVP_CIPHER_CTX* const context = EVP_CIPHER_CTX_new();
        EVP_DecryptInit_ex2(context, EVP_aes_256_cbc(), bytesOf(key()), bytesOf(data), nullptr);
        EVP_DecryptUpdate(
            context, bytesOf(out), &count, bytesOf(data) + 16, static_cast<int>(data.size() - 16));
        EVP_DecryptFinal_ex(context, bytesOf(out) + count, &last);
        EVP_CIPHER_CTX_free(context);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(decryptByHand)->Unit(benchmark::kMillisecond);

void decryptOurs(benchmark::State& state)
{
    const QByteArray& data = sealed();
    for ([[maybe_unused]] const auto _ : state)
        benchmark::DoNotOptimize(decrypt(data, u"key"));
}
BENCHMARK(decryptOurs)->Unit(benchmark::kMillisecond);

void digestByHand(benchmark::State& state, const EVP_MD* kind)
{
    for ([[maybe_unused]] const auto _ : state) {
        std::array<unsigned char, EVP_MAX_MD_SIZE> out{};
        EVP_Digest(plain().constData(), static_cast<std::size_t>(size), out.data(), nullptr, kind, nullptr);
        benchmark::DoNotOptimize(out);
    }
}

void digestOurs(benchmark::State& state, bool useSHA256)
{
    for ([[maybe_unused]] const auto _ : state)
        benchmark::DoNotOptimize(digest(plain(), useSHA256));
}
BENCHMARK_CAPTURE(digestByHand, SHA256, EVP_sha256())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(digestOurs, SHA256, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(digestByHand, SHA512, EVP_sha512())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(digestOurs, SHA512, false)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
