// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/views/BoxSelectorView.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kestrel::test {

/// A real selector that writes down, in a list which several share, what it is asked to do.
template<class Selector> class RecordingSelector : public Selector {
public:
    RecordingSelector(std::string name, std::vector<std::string>& calls)
        : m_name(std::move(name))
        , m_calls(calls) {}

    void setPalettes(Palettes palettes) override {
        note("palettes " + std::to_string(palettes.size()));
        Selector::setPalettes(std::move(palettes));
    }

    bool setPalette(int number, std::shared_ptr<PaletteProtocol> palette) override {
        note("palettes[" + std::to_string(number) + "]");
        return Selector::setPalette(number, std::move(palette));
    }

    void redraw() override {
        note("redraw");
        Selector::redraw();
    }

    bool selectPaletteNumber(int paletteNumber) override {
        note("select palette " + std::to_string(paletteNumber));
        return Selector::selectPaletteNumber(paletteNumber);
    }

    bool selectBoxNumber(int boxNumber) override {
        note("select box " + std::to_string(boxNumber));
        return Selector::selectBoxNumber(boxNumber);
    }

    bool update(int paletteNumber, std::shared_ptr<PaletteProtocol> withPalette) override {
        std::string keys;
        for (std::size_t index = 0; index < withPalette->count(); ++index) {
            keys += " " + std::to_string(withPalette->entry(index).key);
        }
        note("update " + std::to_string(paletteNumber) + " with" + keys);
        // What the selector does to itself meanwhile is its own affair.
        m_updating = true;
        const bool done = Selector::update(paletteNumber, std::move(withPalette));
        m_updating = false;
        return done;
    }

private:
    void note(const std::string& call) {
        if (!m_updating) {
            m_calls.push_back(m_name + " " + call);
        }
    }

    std::string m_name;
    std::vector<std::string>& m_calls;
    bool m_updating = false;
};

} // namespace kestrel::test
