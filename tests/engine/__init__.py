# SPDX-License-Identifier: MIT
"""Dungeons played in OpenMW, without the game and without a screen."""
