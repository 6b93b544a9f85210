#pragma once

namespace nubo {

// Visits a std::variant with one lambda per alternative.
template <class... F> struct Overloaded : F... {
    using F::operator()...;
};

} // namespace nubo
