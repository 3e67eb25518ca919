#pragma once

/// Anatomical vocabulary of the tooth-chart library.
namespace anatomy {

/// A tooth; for now only the scope of its dentition.
class Tooth
{
public:
    /// Which set of teeth a position belongs to. A dentition flag of true means Deciduous.
    enum Dentition {
        Deciduous = 0, ///< The primary (child's) teeth.
        Permanent = 1 ///< The adult teeth.
    };
};

} // namespace anatomy
