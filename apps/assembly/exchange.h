// SPDX-License-Identifier: MIT
// Transforms for other programs: written as texts and graphics arrays, read back and compared.

#ifndef ASSEMBLY_EXCHANGE_H
#define ASSEMBLY_EXCHANGE_H

#include <string>
#include <vector>

#include <vexmath/xform.h>

namespace assembly {

struct NamedTransform {
    std::string name;
    mgXform_c transform;
};

/// The content of an exchange file. It holds, in JSON, each transform in both forms:
///
///     {"transforms": [
///       {"name": "lid", "text": "1 0 0 0 0 1 ...", "gl": [1.0, 0.0, 0.0, 0.0, 0.0, 1.0, ...]}
///     ]}
std::string toExchange(std::vector<NamedTransform> const &transforms);

/// What a form did not keep of a transform.
struct Loss {
    std::string name; ///< of the transform
    std::string form;
    std::string what;
};

/// Reads an exchange file of these transforms. A transform that is not listed came back bit for
/// bit. Throws Failure with file and place when it is no such file, names others, or holds
/// something that places no part.
std::vector<Loss> readExchange(std::string const &file,
                               std::vector<NamedTransform> const &transforms);

} // namespace assembly

#endif
