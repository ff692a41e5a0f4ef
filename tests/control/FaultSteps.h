#pragma once

#include "ControlRig.h"

namespace CorvexTest {

/// One thing that a host or a user does with a running control.
struct Step {
    std::string name;
    /// The status of a member; nothing for what a user does.
    std::function<std::optional<CorvexMaterial::Status>(ControlRig&)> act;
};

/// A plug-in and a custom field for the steps to work with; after the control's start.
void OfferPluginAndField(ControlRig& rig);
/// Every member that calls the host or the desktop.
std::vector<Step> Members();
/// Every property that can be written.
std::vector<Step> Properties();
/// Every control that a user can see and operate.
std::vector<Step> UserActions(ControlRig& rig);

}  // namespace CorvexTest
