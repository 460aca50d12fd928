#pragma once

namespace pelorin {

/// Has this run, and what it starts, use the demonstration's settings and a profile of its own,
/// both copies, so that whatever is tried there is gone at the next demonstration. To be called
/// before anything reads settings or profile; needs an application object.
void useDemonstration();

} // namespace pelorin
