# SPDX-License-Identifier: MIT
"""A desktop of its own, and hands and eyes to use the reader on it as a person would."""
