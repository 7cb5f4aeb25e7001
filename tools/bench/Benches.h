#pragma once

// Each measures in one run what it compares, and adds its rows to the table.
void registerStartBenches();
void registerIdleBenches();
void registerPaintBenches();
void registerDragBenches();
void registerDemoBenches();
void registerTransferBenches();
void registerTurnRoundBenches();
