#pragma once

namespace anatomy {

class Tooth
{
public:
    /// Which set of teeth a position belongs to. A dentition flag of true means Deciduous.
    enum Dentition { Deciduous = 0, Permanent = 1 };
};

} // namespace anatomy
