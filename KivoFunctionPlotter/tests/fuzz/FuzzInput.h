// The bytes of a fuzzer's input, taken as numbers and texts. An input that has run out gives zeros.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

namespace KivoTest {

class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : m_data(data), m_left(size) {}

    bool IsEmpty() const { return m_left == 0; }

    std::uint8_t Byte() {
        if (m_left == 0) return 0;
        --m_left;
        return *m_data++;
    }

    bool Flag() { return (Byte() & 1) != 0; }

    /// 0 to limit - 1.
    unsigned int Below(unsigned int limit) { return Byte() % limit; }

    std::uint32_t Bits() {
        std::uint32_t bits = 0;
        for (int i = 0; i < 4; ++i)
            bits = bits << 8 | Byte();
        return bits;
    }

    /// Mostly one of the numbers at which arithmetic changes its ways, else any bits at all.
    float Float() {
        using Limits = std::numeric_limits<float>;
        static constexpr float special[] = {0.0f,
                                            -0.0f,
                                            1.0f,
                                            -1.0f,
                                            0.5f,
                                            3.0f,
                                            100.0f,
                                            -100.0f,
                                            1e-38f,
                                            -1e-38f,
                                            3e38f,
                                            -3e38f,
                                            6000000.0f,
                                            6000050.0f,
                                            1e-6f,
                                            1e9f,
                                            Limits::max(),
                                            Limits::lowest(),
                                            Limits::min(),
                                            Limits::denorm_min(),
                                            Limits::epsilon(),
                                            Limits::infinity(),
                                            -Limits::infinity(),
                                            Limits::quiet_NaN()};
        constexpr std::size_t count = sizeof special / sizeof special[0];
        const std::uint8_t choice = Byte();
        if (choice < count) return special[choice];
        if (choice < 160) return static_cast<float>(choice - 92) / 8.0f;
        const std::uint32_t bits = Bits();
        float number;
        std::memcpy(&number, &bits, sizeof number);
        return number;
    }

    int Int() {
        static constexpr int special[] = {0,    1,     -1,    2,     3,         40,
                                          100,  640,   4096,  16384, -16384,    65536,
                                          -100, 46341, 32767, -1000, INT32_MAX, INT32_MIN};
        constexpr std::size_t count = sizeof special / sizeof special[0];
        const std::uint8_t choice = Byte();
        if (choice < count) return special[choice];
        if (choice < 200) return choice - 60;
        return static_cast<int>(Bits());
    }

    unsigned int Unsigned() { return static_cast<unsigned int>(Int()); }

    /// Up to 40 bytes of any value but 0, repeated up to 1,000 times.
    std::string Text() {
        std::string piece;
        for (unsigned int length = Below(41); length > 0; --length) {
            const std::uint8_t byte = Byte();
            piece += byte == 0 ? ' ' : static_cast<char>(byte);
        }
        std::string text = piece;
        const std::uint8_t choice = Byte();
        const int repeats = choice == 255 ? 1000 : choice > 240 ? 20 : 1;
        for (int i = 1; i < repeats; ++i)
            text += piece;
        return text;
    }

private:
    const std::uint8_t* m_data;
    std::size_t m_left;
};

} // namespace KivoTest
