// Selects one mutant in the switched copy of the library. The switched copy includes this header in every file.
#pragma once

// Logs that the code of this mutant was executed, and returns whether the mutant is selected. Any thread.
extern "C" bool brimMutantIsOn(unsigned number);
