// What the plot is to somebody who cannot see it.
#pragma once

/// Has the accessible widgets of Qt tell a plot's kind, its title and what it shows; once for a program.
void DescribePlotWidgets();
