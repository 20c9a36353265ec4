#pragma once
// Measuring a recorded tone's pitch far more finely than the tuner's bins: the
// yardstick the tests hold the app's sounds against.
#include <algorithm>
#include <cmath>
#include <complex>
#include <vector>

namespace uke::test {

// Strongest frequency within 3 Hz of `guess` over `count` samples, to about a
// thousandth of a hertz: a Hann-windowed DFT on a grid, then on a finer one.
template <class Sample> double finePitch(const Sample* samples, size_t count, double rate, double guess) {
    std::vector<double> x(count);
    for (size_t i = 0; i < count; ++i)
        x[i] =
            samples[i] * (0.5 - 0.5 * std::cos(2.0 * M_PI * static_cast<double>(i) / static_cast<double>(count - 1)));
    const auto power = [&](double hz) {
        const std::complex<double> step = std::polar(1.0, -2.0 * M_PI * hz / rate);
        std::complex<double> phasor = 1.0, sum = 0.0;
        for (double v : x) {
            sum += v * phasor;
            phasor *= step;
        }
        return std::norm(sum);
    };
    double best = guess;
    for (double span : {3.0, 0.06}) {
        const double centre = best;
        double top = -1.0;
        for (double hz = centre - span; hz <= centre + span; hz += span / 60.0)
            if (const double p = power(hz); p > top) {
                top = p;
                best = hz;
            }
    }
    return best;
}

} // namespace uke::test
