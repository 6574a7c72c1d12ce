#pragma once
// (declarations: see the table of data commands)
