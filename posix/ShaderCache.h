#pragma once

namespace CorvexMaterial {

/// Mesa maps the index of its shader cache, a file with holes: where the disk has no room for one
/// of them, the program ends with SIGBUS. So it is given its room, or Mesa goes without. Before
/// threads start.
void SecureShaderCache();

}  // namespace CorvexMaterial
