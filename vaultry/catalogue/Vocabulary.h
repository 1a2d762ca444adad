// SPDX-License-Identifier: MIT
// The words of the configuration file, shared by the loader, the generators and front ends.
// All of them compare without regard to case.
#pragma once

#include <string_view>

namespace Tarnex {

/// @name Tile kinds
/// @{

/// The name of a kind of tile. It is the name of its element. What is turned from another piece
/// comes with that; to give it all the same is logged as a duplicate, and what comes last counts.
/// What a kind means for generation is told by TileKind.
inline constexpr std::string_view Tile_SwCorner = "CornerSW";         ///< turned from CornerNW
inline constexpr std::string_view Tile_NwCorner = "CornerNW";         ///< brings the other corners
inline constexpr std::string_view Tile_NeCorner = "CornerNE";         ///< turned from CornerNW
inline constexpr std::string_view Tile_SeCorner = "CornerSE";         ///< turned from CornerNW
inline constexpr std::string_view Tile_nWall = "WallN";               ///< brings the other walls
inline constexpr std::string_view Tile_sWall = "WallS";               ///< turned from WallN
inline constexpr std::string_view Tile_eWall = "WallE";               ///< turned from WallN
inline constexpr std::string_view Tile_wWall = "WallW";               ///< turned from WallN
inline constexpr std::string_view Tile_Center = "Center";             ///< floor of a room
inline constexpr std::string_view Tile_Center_2 = "Center_22";        ///< another piece of floor
inline constexpr std::string_view Tile_nDoorway = "DoorwayN";         ///< brings the other sides
inline constexpr std::string_view Tile_sDoorway = "DoorwayS";         ///< turned from DoorwayN
inline constexpr std::string_view Tile_eDoorway = "DoorwayE";         ///< turned from DoorwayN
inline constexpr std::string_view Tile_wDoorway = "DoorwayW";         ///< turned from DoorwayN
inline constexpr std::string_view Tile_DoorwayNW_W = "DoorwayNW_W";   ///< west side of a corner
inline constexpr std::string_view Tile_DoorwayNE_N = "DoorwayNE_N";   ///< turned from DoorwayNW_W
inline constexpr std::string_view Tile_DoorwaySE_E = "DoorwaySE_E";   ///< turned from DoorwayNW_W
inline constexpr std::string_view Tile_DoorwaySW_S = "DoorwaySW_S";   ///< turned from DoorwayNW_W
inline constexpr std::string_view Tile_DoorwayNW_N = "DoorwayNW_N";   ///< north side of a corner
inline constexpr std::string_view Tile_DoorwayNE_E = "DoorwayNE_E";   ///< turned from DoorwayNW_N
inline constexpr std::string_view Tile_DoorwaySE_S = "DoorwaySE_S";   ///< turned from DoorwayNW_N
inline constexpr std::string_view Tile_DoorwaySW_W = "DoorwaySW_W";   ///< turned from DoorwayNW_N
inline constexpr std::string_view Tile_nDoorjamb = "DoorjambN";       ///< brings the other sides
inline constexpr std::string_view Tile_sDoorjamb = "DoorjambS";       ///< turned from DoorjambN
inline constexpr std::string_view Tile_eDoorjamb = "DoorjambE";       ///< turned from DoorjambN
inline constexpr std::string_view Tile_wDoorjamb = "DoorjambW";       ///< turned from DoorjambN
inline constexpr std::string_view Tile_nDoor = "DoorN";               ///< brings the other sides
inline constexpr std::string_view Tile_sDoor = "DoorS";               ///< turned from DoorN
inline constexpr std::string_view Tile_eDoor = "DoorE";               ///< turned from DoorN
inline constexpr std::string_view Tile_wDoor = "DoorW";               ///< turned from DoorN
inline constexpr std::string_view Tile_HallNS = "HallNS";             ///< brings HallEW
inline constexpr std::string_view Tile_HallEW = "HallEW";             ///< turned from HallNS
inline constexpr std::string_view Tile_HallNS_2 = "HallNS_2";         ///< brings HallEW_2
inline constexpr std::string_view Tile_HallEW_2 = "HallEW_2";         ///< turned from HallNS_2
inline constexpr std::string_view Tile_HallEndN = "HallEndN";         ///< brings the other ends
inline constexpr std::string_view Tile_HallEndS = "HallEndS";         ///< turned from HallEndN
inline constexpr std::string_view Tile_HallEndE = "HallEndE";         ///< turned from HallEndN
inline constexpr std::string_view Tile_HallEndW = "HallEndW";         ///< turned from HallEndN
inline constexpr std::string_view Tile_HallCornerNW = "HallCornerNW"; ///< brings the other corners
inline constexpr std::string_view Tile_HallCornerNE = "HallCornerNE"; ///< turned from HallCornerNW
inline constexpr std::string_view Tile_HallCornerSW = "HallCornerSW"; ///< turned from HallCornerNW
inline constexpr std::string_view Tile_HallCornerSE = "HallCornerSE"; ///< turned from HallCornerNW
inline constexpr std::string_view Tile_Hall4Way = "Hall4Way";         ///< open on all sides
inline constexpr std::string_view Tile_nStairsUp = "StairsUpN";       ///< brings all without "_2"
inline constexpr std::string_view Tile_sStairsUp = "StairsUpS";       ///< from StairsUpN
inline constexpr std::string_view Tile_eStairsUp = "StairsUpE";       ///< from StairsUpN
inline constexpr std::string_view Tile_wStairsUp = "StairsUpW";       ///< from StairsUpN
inline constexpr std::string_view Tile_nStairsDn = "StairsDnN";       ///< from StairsUpN
inline constexpr std::string_view Tile_sStairsDn = "StairsDnS";       ///< from StairsUpN
inline constexpr std::string_view Tile_eStairsDn = "StairsDnE";       ///< from StairsUpN
inline constexpr std::string_view Tile_wStairsDn = "StairsDnW";       ///< from StairsUpN
inline constexpr std::string_view Tile_nStairsUp_2 = "StairsUpN_2";   ///< brings all with "_2"
inline constexpr std::string_view Tile_sStairsUp_2 = "StairsUpS_2";   ///< from StairsUpN_2
inline constexpr std::string_view Tile_eStairsUp_2 = "StairsUpE_2";   ///< from StairsUpN_2
inline constexpr std::string_view Tile_wStairsUp_2 = "StairsUpW_2";   ///< from StairsUpN_2
inline constexpr std::string_view Tile_nStairsDn_2 = "StairsDnN_2";   ///< from StairsUpN_2
inline constexpr std::string_view Tile_sStairsDn_2 = "StairsDnS_2";   ///< from StairsUpN_2
inline constexpr std::string_view Tile_eStairsDn_2 = "StairsDnE_2";   ///< from StairsUpN_2
inline constexpr std::string_view Tile_wStairsDn_2 = "StairsDnW_2";   ///< from StairsUpN_2

/// @}

/// @name Tile sets and their tiles
/// @{

/// The element of a tile set, one of its attributes or a value of one.
inline constexpr std::string_view Tile_TileSet = "TileSet";             ///< the element
inline constexpr std::string_view Tile_TsName = "TsName";               ///< by which it is chosen
inline constexpr std::string_view Tile_TsType = "TsType";               ///< "Room" or "Cave"
inline constexpr std::string_view Tile_TsSize = "TsSize";               ///< edge of a cell
inline constexpr std::string_view Tile_WallThickness = "WallThickness"; ///< 0 without
inline constexpr std::string_view Tile_Room = "Room";                   ///< of TsType and layouts
inline constexpr std::string_view Tile_Cave = "Cave";                   ///< of TsType and layouts
inline constexpr std::string_view Tile_HalfSize = "HalfSize";           ///< of Area; see TileArea
inline constexpr std::string_view Tile_QuarterSize = "QuarterSize";     ///< of Area; see TileArea

/// @}

/// @name Attributes shared by several elements
/// @{

/// The name of an attribute. One that is missing leaves the default; text that is no number reads
/// as 0. Offsets and sizes are in world units, but for the offsets of layouts, which are in cells.
inline constexpr std::string_view Attrib_Area = "Area";             ///< of a tile; see TileArea
inline constexpr std::string_view Attrib_Chance = "Chance";         ///< of a theme item [0, 1]
inline constexpr std::string_view Attrib_DeltaZ = "DeltaZ";         ///< height that a stair climbs
inline constexpr std::string_view Attrib_FriendlyName = "FName";    ///< that the player sees
inline constexpr std::string_view Attrib_Height = "Height";         ///< of a layout [cells]
inline constexpr std::string_view Attrib_LayoutName = "LayoutName"; ///< by which it is chosen
inline constexpr std::string_view Attrib_Level = "Level";           ///< of a theme, of content
inline constexpr std::string_view Attrib_Max = "Max";               ///< of a theme item, a stack
inline constexpr std::string_view Attrib_Min = "Min";               ///< of a theme item
inline constexpr std::string_view Attrib_ModelFile = "ModelFile";   ///< of a container
inline constexpr std::string_view Attrib_Name = "Name";             ///< of a theme or platform
inline constexpr std::string_view Attrib_OffsetX = "OffsetX";       ///< to the east
inline constexpr std::string_view Attrib_OffsetY = "OffsetY";       ///< north; of layouts south
inline constexpr std::string_view Attrib_OffsetZ = "OffsetZ";       ///< upwards
inline constexpr std::string_view Attrib_Ratio = "Ratio";           ///< of a theme item
inline constexpr std::string_view Attrib_Requires = "Requires";     ///< a tile placed with it
inline constexpr std::string_view Attrib_Scale = "Scale";           ///< of a tile; 1 without
inline constexpr std::string_view Attrib_SizeX = "SizeX";           ///< from west to east
inline constexpr std::string_view Attrib_SizeY = "SizeY";           ///< from north to south
inline constexpr std::string_view Attrib_SizeZ = "SizeZ";           ///< from bottom to top
inline constexpr std::string_view Attrib_Stack = "Stack";           ///< of content; see Stacking
inline constexpr std::string_view Attrib_Type = "Type";             ///< of layouts, items, content
inline constexpr std::string_view Attrib_UniqueName = "UniqueName"; ///< the game's identifier
inline constexpr std::string_view Attrib_Value = "Value";           ///< of one [gold pieces]
inline constexpr std::string_view Attrib_Weight = "Weight";         ///< or a capacity
inline constexpr std::string_view Attrib_Width = "Width";           ///< of a layout [cells]
inline constexpr std::string_view Attrib_ZRotate = "ZRotate";       ///< clockwise [degrees]

/// @}

/// @name Content kinds
/// @{

/// The name of an element that describes content. But for "Treasure" it is the type of theme
/// items that place such content as well.
inline constexpr std::string_view Content_Armor = "Armor";         ///< lies in containers
inline constexpr std::string_view Content_Clothing = "Clothing";   ///< lies in containers
inline constexpr std::string_view Content_Container = "Container"; ///< at walls, with treasure
inline constexpr std::string_view Content_Creature = "Creature";   ///< walks the level
inline constexpr std::string_view Content_Furniture = "Furniture"; ///< stands at walls
inline constexpr std::string_view Content_Rug = "Rug";             ///< lies on floors
inline constexpr std::string_view Content_Tapestry = "Tapestry";   ///< hangs on walls
inline constexpr std::string_view Content_Treasure = "Treasure";   ///< lies in containers
inline constexpr std::string_view Content_Weapon = "Weapon";       ///< lies in containers

/// @}

/// @name Treasure subtypes
/// @{

/// The kind of things that a treasure is; armor, clothing and weapons are content kinds of their
/// own.
inline constexpr std::string_view Treasure_Armor = "Armor";           ///< for theme items alone
inline constexpr std::string_view Treasure_Book = "Book";             ///< a Type of Treasure
inline constexpr std::string_view Treasure_Clothing = "Clothing";     ///< for theme items alone
inline constexpr std::string_view Treasure_Gem = "Gem";               ///< a Type of Treasure
inline constexpr std::string_view Treasure_Gold = "Gold";             ///< a Type of Treasure
inline constexpr std::string_view Treasure_Ingredient = "Ingredient"; ///< a Type of Treasure
inline constexpr std::string_view Treasure_Misc = "Misc";             ///< a Type of Treasure
inline constexpr std::string_view Treasure_Tool = "Tool";             ///< a Type of Treasure
inline constexpr std::string_view Treasure_Weapon = "Weapon";         ///< for theme items alone

/// @}

/// @name Creature subtypes
/// @{

/// The kind of beings that a creature belongs to. It stands in the attribute Type.
inline constexpr std::string_view Creature_Bird = "Bird";         ///< never placed: no sky
inline constexpr std::string_view Creature_Creature = "Creature"; ///< kept, without effect
inline constexpr std::string_view Creature_Daedra = "Daedra";     ///< kept, without effect
inline constexpr std::string_view Creature_Fish = "Fish";         ///< never placed: no water
inline constexpr std::string_view Creature_Humanoid = "Humanoid"; ///< kept, without effect
inline constexpr std::string_view Creature_Undead = "Undead";     ///< kept, without effect

/// @}

/// @name Stacking
/// @{

/// Whether content may stand on other content; see Stacking.
inline constexpr std::string_view Stack_No = "No";         ///< or any other word
inline constexpr std::string_view Stack_Bottom = "Bottom"; ///< others may stand on it
inline constexpr std::string_view Stack_Top = "Top";       ///< may stand on others
inline constexpr std::string_view Stack_Yes = "Yes";       ///< both

/// @}

/// @name Layout templates
/// @{

/// An element of a layout template. Of the texts of a cell the commas and semicolons separate,
/// blanks do not.
inline constexpr std::string_view Layout_Layout = "Layout"; ///< a template, or a part of one
inline constexpr std::string_view Layout_Row = "Row";       ///< the cells from west to east
inline constexpr std::string_view Layout_Col = "Col";       ///< a cell, with names of tiles

/// @}

/// @name Platforms
/// @{

/// The element of a platform, or one of its pieces; the stairs are named as stair tiles are.
inline constexpr std::string_view Platform_Platform = "Platform"; ///< a kit of pieces
inline constexpr std::string_view Platform_Floor = "Floor";       ///< a slab
inline constexpr std::string_view Platform_Beam = "Beam";         ///< below the edge of slabs

/// @}

/// @name Themes
/// @{

/// The element of a theme, or of an item in one.
inline constexpr std::string_view Theme_Theme = "Theme";                 ///< of furniture
inline constexpr std::string_view Theme_CreatureTheme = "CreatureTheme"; ///< of creatures
inline constexpr std::string_view Theme_TreasureTheme = "TreasureTheme"; ///< of treasure
inline constexpr std::string_view Theme_ThemeItem = "ThemeItem";         ///< an item of any theme

/// @}

/// The document element.
inline constexpr std::string_view Config_Root = "OstrelData";

} // namespace Tarnex
