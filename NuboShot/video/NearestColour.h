#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace nubo::gif {

// Colours as 0x00RRGGBB.
inline int redOf(uint32_t c) { return int(c >> 16) & 0xff; }
inline int greenOf(uint32_t c) { return int(c >> 8) & 0xff; }
inline int blueOf(uint32_t c) { return int(c) & 0xff; }

// Distance as the eye weighs it, roughly: green most, blue least.
inline int distance(int r1, int g1, int b1, uint32_t c)
{
    const int dr = r1 - redOf(c), dg = g1 - greenOf(c), db = b1 - blueOf(c);
    return 3 * dr * dr + 4 * dg * dg + 2 * db * db;
}

// The nearest of a few colours to any colour, found among them sorted by
// green: the search walks out from the colour's green and stops where green
// alone is farther than the best found. The same answer as trying every
// colour in turn, the lowest index among equally near ones. The colours are
// the caller's and must outlive the search.
class NearestColour {
public:
    explicit NearestColour(const std::vector<uint32_t>& colours) : m_colours(colours)
    {
        m_order.resize(colours.size());
        for (size_t i = 0; i < colours.size(); ++i) {
            m_order[i] = uint16_t(i);
        }
        std::sort(m_order.begin(), m_order.end(), [&colours](uint16_t a, uint16_t b) {
            return greenOf(colours[a]) < greenOf(colours[b]);
        });
        m_greens.resize(colours.size());
        for (size_t i = 0; i < colours.size(); ++i) {
            m_greens[i] = greenOf(colours[m_order[i]]);
        }
    }

    // The index of the nearest colour, and its distance.
    std::pair<int, int> find(int r, int g, int b) const
    {
        int best = -1, bestDistance = std::numeric_limits<int>::max();
        const auto consider = [&](size_t at) {
            const int i = m_order[at];
            const int d = distance(r, g, b, m_colours[size_t(i)]);
            if (d < bestDistance || (d == bestDistance && i < best)) {
                best = i;
                bestDistance = d;
            }
        };
        const size_t start =
            size_t(std::lower_bound(m_greens.begin(), m_greens.end(), g) - m_greens.begin());
        size_t up = start, down = start; // [down, up) tried
        bool more = true;
        while (more) {
            more = false;
            if (up < m_greens.size()) {
                const int dg = m_greens[up] - g;
                if (4 * dg * dg <= bestDistance) {
                    consider(up++);
                    more = true;
                } else {
                    up = m_greens.size();
                }
            }
            if (down > 0) {
                const int dg = g - m_greens[down - 1];
                if (4 * dg * dg <= bestDistance) {
                    consider(--down);
                    more = true;
                } else {
                    down = 0;
                }
            }
        }
        return {best, bestDistance};
    }

private:
    const std::vector<uint32_t>& m_colours;
    std::vector<uint16_t> m_order;
    std::vector<int> m_greens;
};

} // namespace nubo::gif
